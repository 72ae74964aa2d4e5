#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "pia_tree/CPBlock.h"

#include <memory>
#include <string>

// One configuration in each of the compared formats. The trees are the same: the same blocks, keys, order and values.
struct Sample
{
    std::unique_ptr<CPBlock> tree;
    std::string text; // of the tree, uncompressed
    std::string file; // the compressed form
    std::string json;
    std::string xml;
};

// A configuration with 5 to 6 KB of text, and one that has 64 KB of private driver data as well. Neither is bound to an
// installed printer, so reading them does not look for one.
const Sample& smallSample();
const Sample& largeSample();

// Gives the benchmarks access to the parts of a configuration.
class OpenPlotCfg : public GmPlotCfg3
{
public:
    using GmPlotCfg3::init;
    using GmPlotCfg3::writeToBlock;
};
