#include "tree_nodes.h"

NodeMaker::NodeMaker()
    : m_strings(antlr3StringFactoryNew(ANTLR3_ENC_8BIT)),
      m_adaptor(ANTLR3_TREE_ADAPTORNew(m_strings.get()))
{
}

pANTLR3_BASE_TREE NodeMaker::node(int type, const char* text) const
{
    // The runtime's interface is not const-correct: it does not change the text.
    const auto chars = reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>(text));
    return static_cast<pANTLR3_BASE_TREE>(
        m_adaptor->createTypeText(m_adaptor.get(), static_cast<ANTLR3_UINT32>(type), chars));
}
