#pragma once

#include <string>
#include <vector>

namespace Kovrel {

// What shells offer while a command is typed. Any thread.
namespace Completion {

// Candidates for the last of the words, one for each line; the words are those after the program's name, and the last
// one may be empty. "<files>" stands for the names of files, "<settings>" for the keys of settings.
std::vector<std::string> candidates(const std::vector<std::string>& words);

} // namespace Completion

} // namespace Kovrel
