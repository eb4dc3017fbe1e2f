#include "welcome/HomeWindow.h"

#include "hotkeys/HotkeySettings.h"
#include "ui/Label.h"
#include "ui/LookChanges.h"
#include "ui/MenuTitle.h"
#include "ui/Notice.h"
#include "ui/PrimaryButton.h"
#include "ui/Questions.h"
#include "ui/controls/Card.h"
#include "ui/controls/PlainButton.h"
#include "ui/controls/RowButton.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/WindowHeader.h"
#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QScreen>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int contentWidth = 420;
constexpr int mostTitleHeight = 48;      // of a desktop's frame
constexpr int leastCommandsHeight = 120; // some rows, whatever stands around them

} // namespace

HomeWindow::HomeWindow(Preferences& preferences, QString version, Handlers handlers)
    : m_preferences(preferences),
      m_version(std::move(version)),
      m_handlers(std::move(handlers)),
      m_content(new QWidget),
      m_header(new WindowHeader),
      m_notice(new Notice),
      m_update(new Notice),
      m_signIn(new PrimaryButton(tr("Use Kovrel on This Computer")))
{
    setWindowTitle("Kovrel");
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    m_notice->hide();
    connect(m_signIn, &QPushButton::clicked, this, [this] { m_handlers.signIn(); });
    auto* content = new QVBoxLayout(m_content);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(Spacing::large);
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_header, m_notice, m_update, m_signIn, makeCommands(), makeFooter()})
        content->addWidget(part);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::large);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_content);
    setWidths();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &HomeWindow::setWidths);
}

QWidget* HomeWindow::makeCommands()
{
    auto* const card = new Card;
    auto* const layout = new QVBoxLayout(card);
    layout->setContentsMargins(Spacing::small, Spacing::small, Spacing::small, Spacing::small);
    layout->setSpacing(Spacing::tight);
    for (const MenuEntry& entry : CommandTable::menu()) {
        auto* row = new RowButton(menuTitle(entry));
        connect(row, &QPushButton::clicked, this, [this, entry] { m_handlers.perform(entry); });
        layout->addWidget(row);
        m_commands.emplace_back(row, entry);
    }
    m_commandList = new ScrollColumn;
    m_commandList->setContent(card);
    return m_commandList;
}

QWidget* HomeWindow::makeFooter()
{
    auto* const footer = new QWidget;
    m_facts = new Label(TextStyle::caption, Label::Role::secondary);
    m_signOut = new PlainButton(tr("Sign Out…"));
    connect(m_signOut, &QPushButton::clicked, this, &HomeWindow::askToSignOut);
    auto* const layout = new QHBoxLayout(footer);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::medium);
    layout->addWidget(m_facts, 1);
    layout->addWidget(m_signOut);
    return footer;
}

void HomeWindow::setWidths()
{
    m_content->setFixedWidth(int(contentWidth * Typography::scale()));
    fitOntoScreen();
}

void HomeWindow::refresh()
{
    const bool isSignedIn = m_handlers.isSignedIn();
    const QString obstacle = m_handlers.obstacle();
    m_header->setTexts(isSignedIn ? QString("Kovrel") : tr("Welcome to Kovrel"),
                       isSignedIn ? tr("Capture from here, from the tray or from the command line.")
                                  : tr("Captures, kept and found again. Everything stays on this computer."));
    if (!obstacle.isEmpty())
        m_notice->show(Notice::Kind::warning, obstacle);
    refreshUpdate();
    m_signIn->setVisible(!isSignedIn && obstacle.isEmpty());
    m_commandList->setVisible(isSignedIn && obstacle.isEmpty());
    for (const auto& [row, entry] : m_commands) {
        row->setEnabled(m_handlers.isEnabled(entry));
        const auto combo = HotkeySettings::combo(m_preferences, entry);
        row->setKeys(combo ? combo->title() : QKeySequence(entry.windowKeys).toString(QKeySequence::NativeText));
    }
    refreshFooter();
    fitOntoScreen();
}

// On a low screen the commands are scrolled.
void HomeWindow::fitOntoScreen()
{
    const int all = m_commandList->widget()->sizeHint().height();
    m_commandList->setFixedHeight(all);
    m_content->layout()->invalidate();
    const int content = std::max(m_content->layout()->totalHeightForWidth(m_content->minimumWidth()), all);
    const QMargins around = layout()->contentsMargins();
    const int most = screen()->availableSize().height() - mostTitleHeight - around.top() - around.bottom();
    const int tooHigh = content - most;
    m_commandList->setFixedHeight(std::max(leastCommandsHeight, all - std::max(0, tooHigh)));
}

void HomeWindow::refreshUpdate()
{
    const auto version = m_handlers.newerVersion();
    m_update->setVisible(version.has_value());
    if (version)
        m_update->show(Notice::Kind::information,
                       tr("Kovrel %1 is available from your package manager.").arg(*version));
}

void HomeWindow::refreshFooter()
{
    const QString account = accountText();
    const QString version = tr("Version %1").arg(m_version);
    m_facts->setText(account.isEmpty() ? version : account + '\n' + version);
    m_signOut->setVisible(m_handlers.account() != AccountKind::none);
}

QString HomeWindow::accountText() const
{
    switch (m_handlers.account()) {
    case AccountKind::none:
        return {};
    case AccountKind::thisComputer:
        return tr("Signed in with the account on this computer");
    case AccountKind::web:
        return tr("Signed in with your account on the web");
    }
    Q_UNREACHABLE();
}

void HomeWindow::askToSignOut()
{
    Questions::ask(*this,
                   {.text = tr("Sign out of Kovrel?"),
                    .explanation = tr("Nothing can be captured until somebody signs in again. Captures and settings "
                                      "stay where they are."),
                    .answer = tr("Sign Out")},
                   [this] { m_handlers.signOut(); });
}

void HomeWindow::showNotice(const QString& text)
{
    m_notice->show(Notice::Kind::information, text);
    fitOntoScreen();
}

void HomeWindow::present()
{
    refresh();
    comeForward();
}

} // namespace Kovrel
