#include "commandline/CommandTable.h"

#include "commandline/OptionValues.h"

#include <algorithm>

namespace Kovrel {

namespace {

// Marks what people read for the tools of translators, which know this name.
#define QT_TRANSLATE_NOOP(context, text) text

using enum HotkeyAction;
using Runs = CommandSpec::Runs;

// A text capture leaves no picture that could be kept.
std::vector<std::string> pictureModes()
{
    return {"area", "window", "fullScreen", "lastArea", "timed"};
}

const char* const outputTakes = "a file ending in .png, .jpeg, .heic or .tiff";

// FILE X Y.
std::optional<std::string> placeError(const Command& command)
{
    for (size_t place = 1; place < command.operands.size(); ++place)
        if (!OptionValues::isWholeNumber(command.operands[place]))
            return "X and Y are whole numbers, not \"" + command.operands[place] + '"';
    return std::nullopt;
}

// [FILE X Y]. Without a file the screen is measured, and the user says the rest there.
std::optional<std::string> measureError(const Command& command)
{
    if (command.operands.empty())
        return command.options.empty() ? std::nullopt
                                       : std::optional("--" + command.options.begin()->first + " goes with a file");
    return command.operands.size() == 3 ? placeError(command) : "measure takes a file, X and Y, or nothing";
}

CommandSpec captureCommand()
{
    return {
        .name = "capture",
        .operands = "MODE",
        .meaning = "MODE: area | window | fullScreen | lastArea | ocrRegion | timed",
        .options = {{.name = "rect",
                     .value = "X,Y,W,H",
                     .meaning = "the area, in points from the top left corner of the primary display",
                     .takes = "X,Y,W,H in points, with a width and height above 0",
                     .makesSense = OptionValues::isRectangle,
                     .onlyWith = {"area", "ocrRegion"}},
                    {.name = "save",
                     .meaning = "save it in the folder of captures, whatever the settings say",
                     .onlyWith = pictureModes()},
                    {.name = "output",
                     .value = "FILE",
                     .meaning = "save it as FILE instead, and wait until it is there",
                     .takes = outputTakes,
                     .makesSense = OptionValues::isPictureFile,
                     .isPath = true,
                     .insteadOf = "save",
                     .onlyWith = pictureModes()},
                    {.name = "copy", .meaning = "copy the picture", .onlyWith = pictureModes()},
                    {.name = "wait", .meaning = "end when the files are on disk, and print where the capture went"},
                    {.name = "json", .meaning = "print a JSON object instead"}},
        .minOperands = 1,
        .maxOperands = 1,
        .choiceName = "capture mode",
        .choices = OptionValues::captureModes(),
        .menu =
            {{QT_TRANSLATE_NOOP("CommandTable", "Capture Area"), "area", {"capture", "area"}, area},
             {QT_TRANSLATE_NOOP("CommandTable", "Capture Window"), "window", {"capture", "window"}, window},
             {QT_TRANSLATE_NOOP("CommandTable", "Capture Full Screen"),
              "fullScreen",
              {"capture", "fullScreen"},
              fullScreen},
             {QT_TRANSLATE_NOOP("CommandTable", "Capture Last Area"), "lastArea", {"capture", "lastArea"}, lastArea},
             {QT_TRANSLATE_NOOP("CommandTable", "Capture with Self-Timer"), "timed", {"capture", "timed"}, selfTimer},
             {QT_TRANSLATE_NOOP("CommandTable", "Extract Text"), "ocrRegion", {"capture", "ocrRegion"}, extractText}},
    };
}

CommandSpec annotateCommand()
{
    return {
        .name = "annotate",
        .operands = "IMAGE",
        .meaning = "a picture with its marks, on its backdrop",
        .options = {{.name = "annotations",
                     .value = "A.json",
                     .meaning = "the marks, as the editor stores them",
                     .isPath = true},
                    {.name = "lenient", .meaning = "leave out annotations that are damaged or of unknown kinds"},
                    {.name = "backdrop",
                     .value = "B.json",
                     .meaning = "the backdrop, as the editor stores it",
                     .isPath = true},
                    {.name = "subject",
                     .value = "X,Y,W,H,RADIUS",
                     .meaning = "the window in the picture, in pixels from its top left corner",
                     .takes = "X,Y,W,H,RADIUS in pixels, with a width and height above 0",
                     .makesSense = OptionValues::isSubject},
                    {.name = "scale",
                     .value = "S",
                     .meaning = "how many pixels make a point; 1 unless told otherwise",
                     .takes = "the pixels to a point, 0.25 to 16",
                     .makesSense = OptionValues::isScale},
                    {.name = "output",
                     .value = "FILE",
                     .meaning = "where to; the extension names the format",
                     .takes = outputTakes,
                     .makesSense = OptionValues::isPictureFile,
                     .isPath = true,
                     .isRequired = true}},
        .minOperands = 1,
        .maxOperands = 1,
        .pathOperands = 1,
        .runs = Runs::drawing,
    };
}

CommandSpec textCommand()
{
    return {.name = "text",
            .operands = "FILE",
            .meaning = "the text in a picture; --raw does without dictionaries",
            .options = {{.name = "raw", .meaning = "read letter by letter, without the help of dictionaries"},
                        {.name = "json", .meaning = "print a JSON object instead"}},
            .minOperands = 1,
            .maxOperands = 1,
            .pathOperands = 1,
            .runs = Runs::whereAsked};
}

CommandSpec codesCommand()
{
    return {.name = "codes",
            .operands = "FILE",
            .meaning = "the QR codes in a picture",
            .options = {{.name = "json", .meaning = "print a JSON array instead"}},
            .minOperands = 1,
            .maxOperands = 1,
            .pathOperands = 1,
            .runs = Runs::whereAsked};
}

OptionSpec colorFormat()
{
    return {.name = "format",
            .value = "hex|rgb|hsl|oklch",
            .meaning = "how the colour is written; hex unless told otherwise",
            .takes = "hex, rgb, hsl or oklch",
            .makesSense = OptionValues::isColorFormat};
}

CommandSpec pickColorCommand()
{
    return {.name = "pick-color",
            .meaning = "the colour that you point at on the screen",
            .options = {colorFormat()},
            .menu = {{QT_TRANSLATE_NOOP("CommandTable", "Pick Color"), "pick-color", {"pick-color"}, pickColor, true}}};
}

CommandSpec colorCommand()
{
    return {.name = "color",
            .operands = "FILE X Y",
            .meaning = "the colour of a pixel, counted from the top left of a picture",
            .options = {colorFormat()},
            .minOperands = 3,
            .maxOperands = 3,
            .pathOperands = 1,
            .operandError = placeError,
            .runs = Runs::whereAsked};
}

CommandSpec measureCommand()
{
    return {
        .name = "measure",
        .operands = "[FILE X Y]",
        .meaning = "the first and last of the like pixels around one, and how many they are; the screen without a file",
        .options = {{.name = "axis",
                     .value = "horizontal|vertical",
                     .meaning = "along which they are; horizontal unless told otherwise",
                     .takes = "horizontal or vertical",
                     .makesSense = OptionValues::isAxis},
                    {.name = "tolerance",
                     .value = "N",
                     .meaning = "how far red, green and blue may each be from the pixel's; 24 unless told otherwise",
                     .takes = "0 to 255",
                     .makesSense = OptionValues::isTolerance},
                    {.name = "edge-floor",
                     .value = "N",
                     .meaning = "ends also at edges within the tolerance whose step is larger than this",
                     .takes = "0 to 765",
                     .makesSense = OptionValues::isEdgeFloor}},
        .maxOperands = 3,
        .pathOperands = 1,
        .operandError = measureError,
        .runs = Runs::byOperands,
        .menu = {{QT_TRANSLATE_NOOP("CommandTable", "Measure Screen"), "measure", {"measure"}, measure}}};
}

CommandSpec historyCommand()
{
    return {.name = "history",
            .operands = "[TERM...]",
            .meaning = "recorded captures, newest first",
            .options = {{.name = "kind",
                         .value = "K",
                         .meaning = "only those of one capture mode",
                         .takes = "area, window, fullScreen, lastArea, ocrRegion or timed",
                         .makesSense = OptionValues::isCaptureMode},
                        {.name = "app", .value = "A", .meaning = "only those of one application"},
                        {.name = "list", .value = "L", .meaning = "only those in one list"},
                        {.name = "date",
                         .value = "D",
                         .meaning = "only those of a time: today, yesterday, 7d, 30d, 2026, 2026-11 or 2026-11-21"},
                        {.name = "json", .meaning = "print a JSON array instead"}},
            .maxOperands = 1000,
            .runs = Runs::whereAsked};
}

std::optional<std::string> preferencesError(const Command& command)
{
    const std::string& verb = command.operands.front();
    const size_t wanted = verb == "list" ? 1 : verb == "set" ? 3 : verb == "get" || verb == "reset" ? 2 : 0;
    if (command.operands.size() == wanted)
        return std::nullopt;
    return "preferences takes list, get KEY, set KEY VALUE or reset KEY";
}

CommandSpec preferencesCommand()
{
    return {.name = "preferences",
            .operands = "list | get KEY | set KEY VALUE | reset KEY",
            .meaning = "the settings",
            .minOperands = 1,
            .maxOperands = 3,
            .operandError = preferencesError,
            .runs = Runs::whereAsked};
}

CommandSpec settingsCommand()
{
    return {
        .name = "settings",
        .operands = "[TAB]",
        .meaning = "the window with all settings",
        .maxOperands = 1,
        .choiceName = "tab",
        .choices = {"general", "capture", "after", "saving", "editor", "shortcuts", "history", "text", "sounds"},
        .menu =
            {{QT_TRANSLATE_NOOP("CommandTable", "Settings…"), "settings", {"settings"}, std::nullopt, true, "Ctrl+,"}},
        .leavesWindow = true};
}

CommandSpec feedbackCommand()
{
    return {.name = "feedback",
            .meaning = "a window that puts together what helps to find a fault; nothing is sent",
            .options = {{.name = "output", .value = "FILE", .meaning = "write it into FILE instead", .isPath = true}},
            .menu = {{QT_TRANSLATE_NOOP("CommandTable", "Feedback…"), "feedback", {"feedback"}}},
            .leavesWindow = true};
}

const std::vector<CommandSpec>& table()
{
    static const std::vector<CommandSpec> all{
        captureCommand(),
        textCommand(),
        codesCommand(),
        annotateCommand(),
        historyCommand(),
        preferencesCommand(),
        {.name = "open",
         .operands = "FILE...",
         .meaning = "pictures, in the editor",
         .minOperands = 1,
         .maxOperands = 1000,
         .pathOperands = 1000,
         .leavesWindow = true},
        {.name = "pin",
         .operands = "FILE",
         .meaning = "a picture, above all windows",
         .minOperands = 1,
         .maxOperands = 1,
         .pathOperands = 1,
         .leavesWindow = true},
        {.name = "sign-in",
         .meaning = "use the account kept on this computer",
         .options = {{.name = "local", .meaning = "the only account that there is", .isRequired = true}},
         .runs = Runs::whereAsked},
        {.name = "sign-out", .meaning = "forget the account", .runs = Runs::whereAsked},
        {.name = "quit", .meaning = "end the running program"},
        pickColorCommand(),
        colorCommand(),
        measureCommand(),
        {.name = "recent",
         .meaning = "the window with recorded captures",
         .options = {{.name = "strip", .meaning = "one row along the edge of the screen instead"}},
         .menu = {{QT_TRANSLATE_NOOP("CommandTable", "Recent Captures"), "recent", {"recent"}, history}},
         .leavesWindow = true},
        {.name = "reopen",
         .meaning = "the card that was closed last comes back",
         .menu =
             {{QT_TRANSLATE_NOOP("CommandTable", "Reopen Closed Capture"), "reopen", {"reopen"}, reopenClosedCapture}}},
        settingsCommand(),
        feedbackCommand(),
    };
    return all;
}

std::vector<MenuEntry> entriesOfAllCommands()
{
    std::vector<MenuEntry> entries;
    for (const CommandSpec& command : table())
        entries.insert(entries.end(), command.menu.begin(), command.menu.end());
    return entries;
}

} // namespace

std::span<const CommandSpec> CommandTable::commands()
{
    return table();
}

const CommandSpec* CommandTable::find(const std::string& name)
{
    const auto found = std::ranges::find(table(), name, [](const CommandSpec& spec) { return std::string(spec.name); });
    return found == table().end() ? nullptr : &*found;
}

const OptionSpec* CommandTable::findOption(const CommandSpec& command, const std::string& name)
{
    const auto named = [](const OptionSpec& option) { return std::string(option.name); };
    const auto found = std::ranges::find(command.options, name, named);
    return found == command.options.end() ? nullptr : &*found;
}

std::span<const MenuEntry> CommandTable::menu()
{
    static const std::vector<MenuEntry> entries = entriesOfAllCommands();
    return entries;
}

const MenuEntry& CommandTable::entryOf(HotkeyAction action)
{
    return *std::ranges::find(menu(), action, &MenuEntry::hotkey);
}

std::span<const MenuEntry> CommandTable::menuInHotkeyOrder()
{
    static const std::vector<MenuEntry> entries = [] {
        auto sorted = entriesOfAllCommands();
        std::erase_if(sorted, [](const MenuEntry& entry) { return !entry.hotkey; });
        std::ranges::sort(sorted, {}, &MenuEntry::hotkey);
        return sorted;
    }();
    return entries;
}

} // namespace Kovrel
