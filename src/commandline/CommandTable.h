#pragma once

#include "commandline/Command.h"
#include "commandline/HotkeyAction.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Kovrel {

// An option of a command. Texts are as people read them.
struct OptionSpec {
    const char* name;            // without dashes
    const char* value = nullptr; // what its value is called; null: a flag
    const char* meaning = "";
    const char* takes = nullptr; // what values make sense; null: any
    bool (*makesSense)(const std::string& value) = nullptr;
    bool isPath = false;
    bool isRequired = false;
    const char* insteadOf = nullptr;     // the option before this one, with which it can't be given
    std::vector<std::string> onlyWith{}; // first operands that it goes with; empty: all
};

// An entry of the tray's menu and of the program's window. It stands for a command line.
struct MenuEntry {
    const char* label;
    const char* action;                 // its name on the bus
    std::vector<std::string> arguments; // of the command line
    std::optional<HotkeyAction> hotkey{};
    bool beginsGroup = false;
    const char* windowKeys = ""; // what does the same in windows of the program
};

// A command of the command line, and where else it is offered.
struct CommandSpec {
    enum class Runs {
        inInstance, // of the program in the tray, which is started where there is none
        whereAsked, // in a process of its own where Kovrel is not running, without a display
        drawing,    // likewise, but with fonts
        byOperands, // with operands `whereAsked`, without any `inInstance`
    };

    const char* name;
    const char* operands = ""; // as the synopsis has them
    const char* meaning = "";
    std::vector<OptionSpec> options{};
    size_t minOperands = 0;
    size_t maxOperands = 0;
    size_t pathOperands = 0;            // so many of them, from the first one on, are paths
    const char* choiceName = nullptr;   // what the first operand is called when it is none of the choices
    std::vector<std::string> choices{}; // of the first operand; empty: anything
    // What is wrong with the operands, in one line.
    std::optional<std::string> (*operandError)(const Command&) = nullptr;
    Runs runs = Runs::inInstance;
    std::vector<MenuEntry> menu{};
    bool leavesWindow = false; // on the screen when it is done, but for what it writes into a file
};

// Everything that Kovrel can be asked to do. The parser, `--help`, the synopsis of the manual page, the completions of
// shells, the actions on the bus, the menus and the hotkeys all come from here. Any thread.
namespace CommandTable {

std::span<const CommandSpec> commands();

// Null for an unknown name.
const CommandSpec* find(const std::string& name);
const OptionSpec* findOption(const CommandSpec& command, const std::string& name);

// Of all commands, as menus have them.
std::span<const MenuEntry> menu();
// The entry of a hotkey.
const MenuEntry& entryOf(HotkeyAction action);
// Those that have a hotkey, as these are registered.
std::span<const MenuEntry> menuInHotkeyOrder();

} // namespace CommandTable

} // namespace Kovrel
