#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "feedback/FeedbackReport.h"
#include "feedback/FeedbackWindow.h"
#include "platform/Lifeline.h"
#include "ports/Ports.h"

#include <QCoreApplication>

#include <expected>
#include <memory>

namespace Kovrel {

// What helps to find a fault, put together for the user to hand on. Nothing is sent from here.
class FeedbackFeature : public Feature {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::FeedbackFeature)

public:
    FeedbackFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports) {}

    std::vector<CommandHandler> commands() override;
    void start(const Launch& launch) override;

private:
    using Written = std::expected<void, QString>;

    void run(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    void report(Reply<QString> reply);
    FeedbackReport::Facts factsOfThisThread() const;
    void show(const QString& report);
    FeedbackWindow::Services services();
    void write(const QString& path, const QString& text, Reply<Written> reply);
    void save(const QString& text, QWindow* parent);
    void mail(const QString& text);

    Foundation& m_foundation;
    const Ports& m_ports;
    QString m_version;                        // from `start` on
    std::unique_ptr<FeedbackWindow> m_window; // null until it is shown for the first time
    Lifeline m_lifeline;
};

} // namespace Kovrel
