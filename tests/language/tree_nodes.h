// Makes tree nodes without a parse.
#pragma once

#include <antlr3.h>

#include <memory>

// Makes and owns nodes of a common tree.
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

    // The order matters: each uses the one before it and is destroyed first.
    std::unique_ptr<ANTLR3_STRING_FACTORY, FactoryDeleter> m_strings;
    std::unique_ptr<ANTLR3_BASE_TREE_ADAPTOR_struct, AdaptorDeleter> m_adaptor;
};
