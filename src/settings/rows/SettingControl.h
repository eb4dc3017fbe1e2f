#pragma once

#include "model/ColorPick.h"
#include "platform/KeyGrabs.h"
#include "platform/Reply.h"

#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

class QWindow;

namespace Kovrel {

// By what a setting is changed. Each kind says what value it shows and gives.
namespace SettingControls {

struct Toggle {}; // a boolean

struct Option {
    QVariant value;
    QString title;
};

// The value of one of the options.
struct Choice {
    std::vector<Option> options;
    std::function<QString(const QVariant&)> other = {}; // what a value that is none of them is called
};

// A number from `least` to `most`.
struct Slider {
    double least = 0;
    double most = 1;
    double step = 0.1;
    std::function<QString(double)> text = {}; // how the number is read
};

struct Text {}; // a line of text

// A colour as "#RRGGBB".
struct Color {
    ColorPick pick = {}; // from the screen; empty: that can't be done
};

// The absolute path of a folder.
struct Folder {
    std::function<void(const QString& path, QWindow* parent, Reply<std::optional<QString>>)> choose;
};

// A key combination as it is stored; 0 for none.
struct Hotkey {
    std::function<std::expected<Subscription, KeyGrabs::Status>(std::function<void(KeyGrabs::Typed)>)> listen;
};

struct Corner {}; // the raw string of a PreviewPosition

struct Language {
    QString code;
    QString title;
    QString package = {}; // that brings it; empty: it is installed
};

// A list of codes; none stands for the languages of the desktop.
struct Languages {
    std::function<void(QStringList chosen, Reply<std::vector<Language>>)> load; // those chosen among them
};

// No value: something to do.
struct Action {
    QString title;
    std::function<void(QWindow* parent)> perform;
};

} // namespace SettingControls

using SettingControl =
    std::variant<SettingControls::Toggle, SettingControls::Choice, SettingControls::Slider, SettingControls::Text,
                 SettingControls::Color, SettingControls::Folder, SettingControls::Hotkey, SettingControls::Corner,
                 SettingControls::Languages, SettingControls::Action>;

} // namespace Kovrel
