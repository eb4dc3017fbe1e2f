#pragma once

#include "feedback/PersonalTraces.h"
#include "platform/Display.h"
#include "preferences/Preferences.h"

namespace Kovrel {

// What is known of the program and its surroundings, as a text that goes with somebody's words. In English, as those
// who read it do. Any thread, but for `changedSettings`.
namespace FeedbackReport {

struct Facts {
    QString version;
    QString system;  // distribution, kernel, processor
    QString desktop; // as it calls itself; empty: it does not
    QString sessionType;
    bool isComposited = false;
    DisplayList displays;
    QStringList libraries; // with their versions
    QStringList settings;
    QStringList log;
};

QString text(const Facts& facts, const PersonalTraces& traces);

// A line for each setting that is not as the program ships. What the user has typed, and where files lie, is not
// in it, only that there is something. Main thread.
QStringList changedSettings(const UserDefaults& defaults);

} // namespace FeedbackReport

} // namespace Kovrel
