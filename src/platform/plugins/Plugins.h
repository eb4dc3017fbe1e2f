#pragma once

#include <QString>

#include <expected>

namespace Kovrel {

// Parts of the program that are loaded when they are first needed, because the libraries behind them would slow every
// start down: `libkovrel-NAME.so` beside the program or its library, or in ../lib/kovrel seen from there. Any thread.
namespace Plugins {

// What the plugin exports under a C name; it stays loaded. The failure is one line, for people.
std::expected<void*, QString> find(const QString& name, const char* symbol);

} // namespace Plugins

} // namespace Kovrel
