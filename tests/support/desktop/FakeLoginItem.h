#pragma once

#include "platform/LoginItem.h"

namespace Kovrel::Testing {

class FakeLoginItem : public LoginItem {
public:
    bool state = false;
    QString refusal; // why it can't be changed; empty: it can

    bool isOn() const override { return state; }

    std::expected<void, QString> set(bool isOn) override
    {
        if (!refusal.isEmpty())
            return std::unexpected(refusal);
        state = isOn;
        return {};
    }
};

} // namespace Kovrel::Testing
