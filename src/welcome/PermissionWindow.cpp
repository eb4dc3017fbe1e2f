#include "welcome/PermissionWindow.h"

#include "ui/Label.h"
#include "ui/LookChanges.h"
#include "ui/Notice.h"
#include "ui/PrimaryButton.h"
#include "ui/controls/Card.h"
#include "ui/controls/WindowHeader.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>

namespace Kovrel {

namespace {

constexpr int contentWidth = 440;

} // namespace

PermissionWindow::PermissionWindow(Services services)
    : m_services(std::move(services)), m_content(new QWidget), m_header(new WindowHeader)
{
    setWindowTitle("Kovrel");
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    m_still = new Notice;
    m_still->hide();
    m_check = new PrimaryButton(tr("Check Again"));
    connect(m_check, &QPushButton::clicked, this, &PermissionWindow::check);
    auto* const content = new QVBoxLayout(m_content);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(Spacing::large);
    for (QWidget* part : std::initializer_list<QWidget*>{m_header, makeSteps(), m_still, m_check})
        content->addWidget(part);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::window);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_content);
    setWidths();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &PermissionWindow::setWidths);
}

QWidget* PermissionWindow::makeSteps()
{
    auto* const card = new Card;
    auto* const layout = new QGridLayout(card);
    layout->setContentsMargins(Spacing::large, Spacing::medium, Spacing::large, Spacing::medium);
    layout->setHorizontalSpacing(Spacing::medium);
    layout->setVerticalSpacing(Spacing::small);
    layout->setColumnStretch(1, 1);
    for (int line = 0; line < m_services.steps.size(); ++line) {
        auto* const number = new Label(TextStyle::emphasis);
        number->setText(QString::number(line + 1));
        number->setWordWrap(false);
        auto* const step = new Label(TextStyle::control);
        step->setText(m_services.steps.at(line));
        layout->addWidget(number, line, 0, Qt::AlignTop);
        layout->addWidget(step, line, 1);
    }
    return card;
}

void PermissionWindow::setWidths()
{
    m_content->setFixedWidth(int(contentWidth * Typography::scale()));
}

void PermissionWindow::present()
{
    showReason(m_services.reason());
    m_still->hide();
    comeForward();
    m_check->setFocus();
}

void PermissionWindow::showReason(const QString& reason)
{
    m_header->setTexts(tr("Kovrel can't capture here"), reason);
}

void PermissionWindow::check()
{
    const QString reason = m_services.reason();
    if (!reason.isEmpty()) {
        showReason(reason);
        m_still->show(Notice::Kind::warning, tr("Capturing is still not possible."));
        return;
    }
    close();
    m_services.cleared();
}

void PermissionWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close))
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        check();
    else
        AppWindow::keyPressEvent(event);
}

} // namespace Kovrel
