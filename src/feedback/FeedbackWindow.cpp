#include "feedback/FeedbackWindow.h"

#include "ui/Label.h"
#include "ui/Notice.h"
#include "ui/controls/PlainButton.h"
#include "ui/controls/TextArea.h"
#include "ui/controls/WindowHeader.h"
#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>

namespace Kovrel {

namespace {

constexpr QSize usualSize(620, 620);

Label* captioned(const QString& text)
{
    auto* const label = new Label(TextStyle::emphasis);
    label->setText(text);
    return label;
}

} // namespace

FeedbackWindow::FeedbackWindow(Services services)
    : m_services(std::move(services)),
      m_words(new TextArea(TextArea::Kind::words, tr("Your words"))),
      m_report(new TextArea(TextArea::Kind::report, tr("What goes with them"))),
      m_notice(new Notice)
{
    setWindowTitle(tr("Kovrel Feedback"));
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    auto* const header = new WindowHeader;
    header->setTexts(tr("Feedback"),
                     tr("Kovrel sends nothing by itself. What stands here is all there is: read it, change it or take "
                        "out what you like, and hand it on yourself."));
    m_words->setPlaceholder(tr("What happened, and what did you expect?"));
    m_notice->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::large);
    layout->setSpacing(Spacing::small);
    layout->addWidget(header);
    layout->addSpacing(Spacing::small);
    layout->addWidget(captioned(tr("Your words")));
    layout->addWidget(m_words, 2);
    layout->addSpacing(Spacing::small);
    layout->addWidget(captioned(tr("What goes with them")));
    layout->addWidget(m_report, 5);
    layout->addWidget(m_notice);
    layout->addLayout(makeButtons());
    placeWherePointerIs((QSizeF(usualSize) * Typography::scale()).toSize());
}

QLayout* FeedbackWindow::makeButtons()
{
    auto* const layout = new QHBoxLayout;
    layout->setContentsMargins(0, Spacing::small, 0, 0);
    layout->setSpacing(Spacing::small);
    layout->addStretch();
    if (m_services.mail)
        layout->addWidget(makeButton(tr("Open in Mail…"), [this] { m_services.mail(text()); }));
    layout->addWidget(makeButton(tr("Copy"), [this] {
        m_services.copy(text());
        showNotice(tr("Copied."), false);
    }));
    layout->addWidget(makeButton(tr("Save As…"), [this] { m_services.save(text(), windowHandle()); }));
    return layout;
}

PlainButton* FeedbackWindow::makeButton(const QString& title, std::function<void()> pressed)
{
    auto* const button = new PlainButton(title);
    connect(button, &QPushButton::clicked, this, std::move(pressed));
    return button;
}

void FeedbackWindow::present(const QString& report)
{
    if (!isVisible()) {
        m_report->setText(report);
        m_notice->hide();
        m_words->setFocus();
    }
    comeForward();
}

void FeedbackWindow::showNotice(const QString& text, bool isWarning)
{
    m_notice->show(isWarning ? Notice::Kind::warning : Notice::Kind::information, text);
}

QString FeedbackWindow::text() const
{
    const QString words = m_words->text().trimmed();
    return words.isEmpty() ? m_report->text() : words + "\n\n" + m_report->text();
}

void FeedbackWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close))
        close();
    else
        AppWindow::keyPressEvent(event);
}

} // namespace Kovrel
