#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"
#include "ports/UpdateStatus.h"
#include "updates/UpdateCheck.h"

namespace Kovrel {

// Looks for newer versions of the program.
class UpdatesFeature : public Feature, private UpdateStatus {
public:
    UpdatesFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;
    std::vector<SettingsPage> settingsPages() override;
    void prepareToEnd() override;

private:
    // UpdateStatus
    std::optional<QString> newerVersion() const override;

    Subscription onChange(std::function<void()> observer) override { return m_changes.add(std::move(observer)); }

    Foundation& m_foundation;
    Observers<> m_changes;
    std::unique_ptr<UpdateCheck> m_check; // from `start` on
    Subscription m_found;
};

} // namespace Kovrel
