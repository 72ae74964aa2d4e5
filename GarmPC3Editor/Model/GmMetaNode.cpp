#include "GarmPC3Editor/Model/NodeTables.h"

bool GmMetaNode::init(const CPBlock& block)
{
    return nodes::meta.read(*this, block);
}

bool GmMetaNode::write(CPBlock& block) const
{
    return nodes::meta.write(*this, block);
}
