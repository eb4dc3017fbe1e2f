#pragma once

#include <QString>

#include <expected>

namespace Kovrel {

// Whether the program starts with the user's session. Calls work on the disk: one worker at a time.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual bool isOn() const = 0;
    // The failure is one line for people.
    virtual std::expected<void, QString> set(bool isOn) = 0;
};

} // namespace Kovrel
