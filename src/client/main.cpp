#include "client/Instance.h"
#include "commandline/CommandHelp.h"
#include "commandline/CommandLine.h"
#include "commandline/CommandTable.h"
#include "commandline/Completion.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <unistd.h>

using namespace Kovrel;

namespace {

// Empty where it is gone.
std::string workingDirectory()
{
    char path[PATH_MAX];
    return getcwd(path, sizeof path) && path[0] == '/' ? path : "";
}

int complain(const std::string& line, int exitCode)
{
    std::fprintf(stderr, "kovrel: %s\n", line.c_str());
    return exitCode;
}

// One line, which says where to read on.
int complainOfUsage(const std::string& error, int argc, char** argv)
{
    const bool isKnown = argc > 1 && CommandTable::find(argv[1]);
    return complain(error + "; see kovrel " + (isKnown ? std::string(argv[1]) + " " : "") + "--help",
                    CommandLine::usageError);
}

// The text recogniser's own threads cost six times what they save. The OpenMP library, which comes with the
// application, reads this once, when it is loaded; programs that we start shall not inherit it.
class SingleThreadedOpenMP {
public:
    SingleThreadedOpenMP()
    {
        if (!m_wasSet)
            setenv(name, "1", 1);
    }

    ~SingleThreadedOpenMP()
    {
        if (!m_wasSet)
            unsetenv(name);
    }

    SingleThreadedOpenMP(const SingleThreadedOpenMP&) = delete;
    SingleThreadedOpenMP& operator=(const SingleThreadedOpenMP&) = delete;

private:
    static constexpr const char* name = "OMP_THREAD_LIMIT";
    const bool m_wasSet = std::getenv(name);
};

// Where memory is short, a destructor or a library may be what notices, also while it is loaded.
void giveUp()
{
    std::fputs("kovrel: there is not enough memory\n", stderr);
    std::_Exit(CommandLine::failed);
}

// The application library lies beside the program in a build folder, in lib/kovrel when installed.
void* loadApplication()
{
    const SingleThreadedOpenMP environment;
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    const std::string program(path, size_t(length > 0 ? length : 0));
    const std::string folder = program.substr(0, program.rfind('/'));
    for (const char* place : {"/libkovrel-app.so", "/../lib/kovrel/libkovrel-app.so"})
        if (void* library = dlopen((folder + place).c_str(), RTLD_NOW | RTLD_GLOBAL))
            return library;
    return nullptr;
}

// Becomes the application, or runs the command in this process.
int runHere(const Command& command)
{
    std::set_terminate(giveUp);
    void* library = loadApplication();
    if (!library)
        return complain(std::string("the application can't be loaded: ") + dlerror(), CommandLine::failed);
    using Main = int (*)(const char* const*, int);
    const auto applicationMain = reinterpret_cast<Main>(dlsym(library, "kovrelMain"));
    std::vector<std::string> arguments = command.arguments();
    std::vector<const char*> pointers;
    pointers.reserve(arguments.size());
    for (const std::string& argument : arguments)
        pointers.push_back(argument.c_str());
    return applicationMain(pointers.data(), int(pointers.size()));
}

int report(const Instance::Answer& answer)
{
    if (std::fputs(answer.output.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        return complain("the output can't be written", CommandLine::failed);
    if (!answer.error.empty())
        complain(answer.error, 0);
    return answer.exitCode;
}

int runInInstance(const Command& command)
{
    Instance instance;
    if (auto answer = instance.run(command.arguments()))
        return report(*answer);
    if (command.name == "quit")
        return complain("Kovrel is not running", CommandLine::nothingThere);
    if (command.name == "start" || CommandLine::runsWithoutInstance(command) || !instance.hasBus())
        return runHere(command);
    if (const auto error = instance.start())
        return complain(*error, CommandLine::failed);
    const auto answer = instance.run(command.arguments());
    return answer ? report(*answer) : complain("Kovrel ended while it was starting", CommandLine::failed);
}

int help(const Command& command)
{
    const CommandSpec* spec = command.operands.empty() ? nullptr : CommandTable::find(command.operands.front());
    std::fputs((spec ? CommandHelp::usage(*spec) : CommandHelp::usage()).c_str(), stdout);
    return CommandLine::done;
}

// What the completions of shells ask for: the words so far, the last one being typed.
int complete(const std::vector<std::string>& words)
{
    for (const std::string& candidate : Completion::candidates(words))
        std::puts(candidate.c_str());
    return CommandLine::done;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::string(argv[1]) == "--complete")
        return complete({argv + 2, argv + argc});
    const auto command = CommandLine::parse({argv + 1, argv + argc}, workingDirectory());
    if (!command)
        return complainOfUsage(command.error(), argc, argv);
    if (command->name == "help")
        return help(*command);
    if (command->name == "version")
        return std::puts("kovrel " KOVREL_VERSION), CommandLine::done;
    return runInInstance(*command);
}
