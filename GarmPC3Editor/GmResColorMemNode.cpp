#include "GarmPC3Editor/NodeTables.h"

bool GmResColorMemNode::init(const CPBlock& block)
{
    return nodes::resColorMem.read(*this, block);
}

bool GmResColorMemNode::write(CPBlock& block) const
{
    return nodes::resColorMem.write(*this, block);
}
