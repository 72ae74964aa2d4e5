#include "GarmPC3Editor/Model/NodeTables.h"

bool GmIoNode::init(const CPBlock& block)
{
    return nodes::io.read(*this, block);
}

bool GmIoNode::write(CPBlock& block) const
{
    return nodes::io.write(*this, block);
}
