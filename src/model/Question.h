#pragma once

#include <QString>

namespace Kovrel {

// What people are asked before something that can't be taken back.
struct Question {
    QString text;
    QString explanation;
    QString answer; // of who wants it
};

} // namespace Kovrel
