#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "pia_tree/CPBlock.h"

#include <memory>
#include <string>

// One configuration in the formats that are compared. The trees are the same: the same blocks, keys, order and values.
struct Sample
{
    std::unique_ptr<CPBlock> tree;
    std::string text; // of the tree, not compressed
    std::string file; // the compressed form
    std::string json;
    std::string xml;
};

// A configuration whose text has 5 to 6 KB, and one that has 64 KB of private driver data as well. Neither is bound to
// an installed printer, so reading one looks for none.
const Sample& smallSample();
const Sample& largeSample();

// Lets the benchmarks take a configuration to pieces.
class OpenPlotCfg : public GmPlotCfg3
{
public:
    using GmPlotCfg3::init;
    using GmPlotCfg3::writeToBlock;
};
