// Nodes made by hand, outside of any load.
#pragma once

#include <antlr3.h>

#include <memory>

// Makes nodes of a common tree; they live as long as the maker.
class NodeMaker {
public:
    NodeMaker();

    pANTLR3_BASE_TREE_ADAPTOR adaptor() const { return m_adaptor.get(); }

    // A node of this type. The text is not copied.
    pANTLR3_BASE_TREE node(int type, const char* text = "text") const;

private:
    struct FactoryDeleter {
        void operator()(pANTLR3_STRING_FACTORY factory) const { factory->close(factory); }
    };
    struct AdaptorDeleter {
        void operator()(pANTLR3_BASE_TREE_ADAPTOR adaptor) const { adaptor->free(adaptor); }
    };

    // In this order, so that they die in reverse.
    std::unique_ptr<ANTLR3_STRING_FACTORY, FactoryDeleter> m_strings;
    std::unique_ptr<ANTLR3_BASE_TREE_ADAPTOR_struct, AdaptorDeleter> m_adaptor;
};
