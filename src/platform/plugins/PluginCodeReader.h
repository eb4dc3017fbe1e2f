#pragma once

#include "platform/CodeReader.h"

namespace Kovrel {

// The reader of the plugin "codes", which is loaded when it is first used.
class PluginCodeReader : public CodeReader {
public:
    Outcome read(const QImage& grey, Engine engine) const override;

    // What the plugin exports, as `kovrelCodeReader`: an object that lives as long as the program.
    using Function = const CodeReader* (*)();
};

} // namespace Kovrel
