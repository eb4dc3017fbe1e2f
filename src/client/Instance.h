#pragma once

#include <optional>
#include <string>
#include <vector>

struct sd_bus;

namespace Kovrel {

// The running program, over the session bus.
class Instance {
public:
    struct Answer {
        int exitCode = 0;
        std::string output;
        std::string error;
    };

    Instance();
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    bool hasBus() const { return m_bus; }

    // Runs a command there, however long it takes; one that is not even taken on within some seconds has failed. No
    // value when no instance is running.
    std::optional<Answer> run(const std::vector<std::string>& arguments);

    // Starts the program in the background and waits until it can be reached, for some seconds. The error is what it
    // said when it gave up.
    std::optional<std::string> start();

private:
    bool isRunning();

    sd_bus* m_bus = nullptr;
};

} // namespace Kovrel
