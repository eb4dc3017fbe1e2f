#pragma once

#include "platform/ColorSampler.h"
#include "platform/MainLoop.h"

#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

namespace Kovrel {

// Asks the desktop's portal on the session bus, which shows a sampler of its own. Without a portal there is no colour,
// and none either when it ends, refuses, or has not answered after minutes.
class PortalColorSampler : public QObject, public ColorSampler {
    Q_OBJECT

public:
    explicit PortalColorSampler(MainLoop& loop);
    ~PortalColorSampler() override;

    void pick(Reply<Outcome> reply) override;
    void cancel() override;

private Q_SLOTS:
    void responded(uint response, const QVariantMap& results);

private:
    void listenTo(const QString& request);
    void accepted(const QDBusPendingReply<QDBusObjectPath>& request);
    void finish(const Outcome& outcome);

    MainLoop& m_loop;
    QDBusServiceWatcher m_portal;
    Reply<Outcome> m_reply; // none: nobody is asked
    QString m_request;      // the path of the one that is under way
    quint64 m_count = 0;
    MainLoop::TimerID m_patience = 0;
};

} // namespace Kovrel
