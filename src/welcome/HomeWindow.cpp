#include "welcome/HomeWindow.h"

#include "hotkeys/HotkeySettings.h"
#include "ui/Label.h"
#include "ui/LookChanges.h"
#include "ui/MenuTitle.h"
#include "ui/Notice.h"
#include "ui/PrimaryButton.h"
#include "ui/ProgramIcon.h"
#include "ui/RowButton.h"
#include "ui/controls/Card.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>
#include <QIcon>

namespace Kovrel {

namespace {

constexpr int contentWidth = 420;

} // namespace

HomeWindow::HomeWindow(Preferences& preferences, Handlers handlers)
    : m_preferences(preferences), m_handlers(std::move(handlers))
{
    setWindowTitle("Kovrel");
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    m_notice = new Notice;
    m_notice->hide();
    m_signIn = new PrimaryButton(tr("Use Kovrel on this computer"));
    connect(m_signIn, &QPushButton::clicked, this, [this] { m_handlers.signIn(); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::window);
    layout->setSpacing(Spacing::large);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    for (QWidget* part : std::initializer_list<QWidget*>{makeHeader(), m_notice, m_signIn, makeCommands()})
        layout->addWidget(part);
    setWidths();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &HomeWindow::setWidths);
}

QWidget* HomeWindow::makeHeader()
{
    m_header = new QWidget;
    m_title = new Label(TextStyle::headline);
    m_subtitle = new Label(TextStyle::body, Label::Role::secondary);
    auto* layout = new QGridLayout(m_header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(Spacing::medium);
    layout->setVerticalSpacing(Spacing::tight);
    layout->addWidget(new ProgramIcon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(m_title, 0, 1, Qt::AlignBottom);
    layout->addWidget(m_subtitle, 1, 1, Qt::AlignTop);
    layout->setColumnStretch(1, 1);
    return m_header;
}

QWidget* HomeWindow::makeCommands()
{
    m_commandList = new Card;
    auto* layout = new QVBoxLayout(m_commandList);
    layout->setContentsMargins(Spacing::small, Spacing::small, Spacing::small, Spacing::small);
    layout->setSpacing(Spacing::tight);
    for (const MenuEntry& entry : CommandTable::menu()) {
        auto* row = new RowButton(menuTitle(entry));
        connect(row, &QPushButton::clicked, this, [this, entry] { m_handlers.perform(entry); });
        layout->addWidget(row);
        m_commands.emplace_back(row, entry);
    }
    return m_commandList;
}

void HomeWindow::setWidths()
{
    const int width = int(contentWidth * Typography::scale());
    for (QWidget* part : std::initializer_list<QWidget*>{m_header, m_notice, m_signIn, m_commandList})
        part->setFixedWidth(width);
}

void HomeWindow::refresh()
{
    const bool isSignedIn = m_handlers.isSignedIn();
    const QString obstacle = m_handlers.obstacle();
    m_title->setText(isSignedIn ? QString("Kovrel") : tr("Welcome to Kovrel"));
    m_subtitle->setText(isSignedIn ? tr("Capture from here, from the tray or from the command line.")
                                   : tr("Captures, kept and found again. Everything stays on this computer."));
    if (!obstacle.isEmpty())
        m_notice->show(Notice::Kind::warning, obstacle);
    m_signIn->setVisible(!isSignedIn && obstacle.isEmpty());
    m_commandList->setVisible(isSignedIn && obstacle.isEmpty());
    for (const auto& [row, entry] : m_commands) {
        row->setEnabled(m_handlers.isEnabled(entry));
        const auto combo = HotkeySettings::combo(m_preferences, entry);
        row->setKeys(combo ? combo->text() : QString(entry.windowKeys));
    }
}

void HomeWindow::showNotice(const QString& text)
{
    m_notice->show(Notice::Kind::information, text);
}

void HomeWindow::present()
{
    refresh();
    showNormal();
    raise();
    activateWindow();
}

} // namespace Kovrel
