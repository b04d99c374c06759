#include "tree_printer.h"

#include "editor_antlr3.h"
#include "scribonspecs_tokens.h"

// Defined by the generated parser, which declares it in no header.
extern "C" pANTLR3_UINT8 scribonspecsParserTokenNames[];

namespace {

std::string nodeTypeName(pANTLR3_BASE_TREE tree)
{
    const int type = static_cast<int>(tree->getType(tree));
    if (type == -1)
        return "EOF";
    if (type == TOKEN_INVALID)
        return tree->isNilNode(tree) ? "NIL" : "ERROR";
    return typeName(type);
}

std::string nodeText(pANTLR3_BASE_TREE tree)
{
    const pANTLR3_STRING text = tree->toString(tree);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text->chars);
}

std::string nodeLabel(pANTLR3_BASE_TREE tree)
{
    std::string name = nodeTypeName(tree);
    const std::string text = nodeText(tree);
    if (name == "EOF" || name == "NIL" || text == name)
        return name;
    return name + "(" + escapedText(text) + ")";
}

}  // namespace

std::string printTree(pANTLR3_BASE_TREE tree)
{
    std::string result = nodeLabel(tree);
    const ANTLR3_UINT32 count = tree->getChildCount(tree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i)
        result += (i == 0 ? " [ " : ", ") + printTree(childAt(tree, i));
    return count == 0 ? result : result + " ]";
}

std::string printChildren(pANTLR3_BASE_TREE root)
{
    std::string result;
    for (ANTLR3_UINT32 i = 0; i < root->getChildCount(root); ++i)
        result += printTree(childAt(root, i)) + "\n";
    return result;
}

std::string printWholeTree(pANTLR3_BASE_TREE root)
{
    if (root == nullptr)
        return {};
    return root->isNilNode(root) ? printChildren(root) : printTree(root) + "\n";
}

std::string typeName(int type)
{
    return reinterpret_cast<const char*>(scribonspecsParserTokenNames[type]);
}

std::string escapedText(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '\n':
                result += "\\n";
                break;
            case '\r':
                result += "\\r";
                break;
            case '\t':
                result += "\\t";
                break;
            default:
                result += c;
        }
    }
    return result;
}
