#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"
#include "model/QRCode.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace Kovrel {

// `kovrel codes FILE [--json]`. Any thread; blocks for as long as reading the file and looking for codes takes.
namespace CodesCommand {

CommandAnswer run(const Command& command);

// The payloads, a line for each.
QString plain(const std::vector<QRCode>& codes);

// As the command prints them: an array of "payload" and "box", which is x, y, width and height of the normalised box
// with five decimals.
nlohmann::ordered_json json(const std::vector<QRCode>& codes);

} // namespace CodesCommand

} // namespace Kovrel
