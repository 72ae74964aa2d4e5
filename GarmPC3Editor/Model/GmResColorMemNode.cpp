#include "GarmPC3Editor/Model/NodeTables.h"

bool GmResolutionNode::init(const CPBlock& block)
{
    return nodes::resolution.read(*this, block);
}

bool GmResolutionNode::write(CPBlock& block) const
{
    return nodes::resolution.write(*this, block);
}

bool GmResColorMemNode::init(const CPBlock& block)
{
    return nodes::resColorMem.read(*this, block);
}

bool GmResColorMemNode::write(CPBlock& block) const
{
    return nodes::resColorMem.write(*this, block);
}
