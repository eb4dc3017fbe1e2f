#include "welcome/HomeWindow.h"

#include "hotkeys/HotkeySettings.h"

#include <QGridLayout>
#include <QIcon>

namespace Kovrel {

namespace {

constexpr int contentWidth = 420;
constexpr int margin = 28;

QLabel* label(int pixelSize, QFont::Weight weight)
{
    auto* label = new QLabel;
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    label->setFont(font);
    label->setWordWrap(true);
    return label;
}

void dim(QWidget* widget)
{
    QPalette palette = widget->palette();
    for (const auto& [group, opacity] :
         {std::pair{QPalette::Active, 0.62f}, {QPalette::Inactive, 0.62f}, {QPalette::Disabled, 0.26f}}) {
        QColor color = palette.color(QPalette::Active, QPalette::WindowText);
        color.setAlphaF(opacity);
        palette.setColor(group, QPalette::WindowText, color);
    }
    widget->setPalette(palette);
}

constexpr const char* buttonStyle =
    "QPushButton { text-align: left; padding: 8px 12px; border: none; border-radius: 8px; font-size: 14px; }"
    "QPushButton:hover:enabled { background: rgba(47, 107, 255, 34); }"
    "QPushButton:focus { background: rgba(47, 107, 255, 26); }";
constexpr const char* primaryStyle =
    "QPushButton { padding: 10px 18px; border: none; border-radius: 9px; font-size: 14px; font-weight: 600;"
    " color: white; background: #2F6BFF; }"
    "QPushButton:hover { background: #4A7FFF; } QPushButton:pressed { background: #2358DB; }";
constexpr const char* noticeStyle =
    "QLabel { padding: 12px 14px; border-radius: 10px; background: rgba(255, 159, 10, 40); }";

} // namespace

HomeWindow::HomeWindow(Preferences& preferences, Handlers handlers)
    : m_preferences(preferences), m_handlers(std::move(handlers))
{
    setWindowTitle("Kovrel");
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin - 4);
    layout->setSpacing(18);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeHeader());
    layout->addWidget(makeNotice());
    m_signIn = new QPushButton("Use Kovrel on this computer");
    m_signIn->setStyleSheet(primaryStyle);
    m_signIn->setCursor(Qt::PointingHandCursor);
    connect(m_signIn, &QPushButton::clicked, this, [this] { m_handlers.signIn(); });
    layout->addWidget(m_signIn);
    layout->addWidget(makeCommands());
}

QWidget* HomeWindow::makeHeader()
{
    auto* header = new QWidget;
    auto* layout = new QGridLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(16);
    auto* icon = new QLabel;
    icon->setPixmap(QIcon(":/com.kovrel.Kovrel.svg").pixmap(QSize(56, 56), devicePixelRatioF()));
    m_title = label(22, QFont::Bold);
    m_subtitle = label(13, QFont::Normal);
    dim(m_subtitle);
    layout->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(m_title, 0, 1, Qt::AlignBottom);
    layout->addWidget(m_subtitle, 1, 1, Qt::AlignTop);
    layout->setColumnStretch(1, 1);
    header->setFixedWidth(contentWidth);
    return header;
}

QWidget* HomeWindow::makeNotice()
{
    m_notice = label(13, QFont::Normal);
    m_notice->setStyleSheet(noticeStyle);
    m_notice->setFixedWidth(contentWidth);
    m_notice->hide();
    return m_notice;
}

QWidget* HomeWindow::makeCommands()
{
    m_commandList = new QWidget;
    auto* layout = new QGridLayout(m_commandList);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(2);
    for (const MenuEntry& entry : CommandTable::menu()) {
        auto* button = new QPushButton(entry.label);
        button->setStyleSheet(buttonStyle);
        connect(button, &QPushButton::clicked, this, [this, entry] { m_handlers.perform(entry); });
        auto* keys = label(13, QFont::Normal);
        dim(keys);
        keys->setWordWrap(false);
        const int row = int(m_commands.size());
        layout->addWidget(button, row, 0);
        layout->addWidget(keys, row, 1, Qt::AlignRight | Qt::AlignVCenter);
        m_commands.emplace_back(button, entry);
        m_keys.push_back(keys);
    }
    layout->setColumnStretch(0, 1);
    m_commandList->setFixedWidth(contentWidth);
    return m_commandList;
}

void HomeWindow::refresh()
{
    const bool isSignedIn = m_handlers.isSignedIn();
    const QString obstacle = m_handlers.obstacle();
    m_title->setText(isSignedIn ? "Kovrel" : "Welcome to Kovrel");
    m_subtitle->setText(isSignedIn ? "Capture from here, from the tray or from the command line."
                                   : "Captures, kept and found again. Everything stays on this computer.");
    if (!obstacle.isEmpty())
        showNotice(obstacle);
    m_signIn->setVisible(!isSignedIn && obstacle.isEmpty());
    m_commandList->setVisible(isSignedIn && obstacle.isEmpty());
    for (size_t i = 0; i < m_commands.size(); ++i) {
        const auto& [button, entry] = m_commands[i];
        button->setEnabled(m_handlers.isEnabled(entry));
        const auto combo = HotkeySettings::combo(m_preferences, entry);
        m_keys[i]->setText(combo ? combo->text() : QString());
        m_keys[i]->setEnabled(button->isEnabled());
    }
}

void HomeWindow::showNotice(const QString& text)
{
    m_notice->setText(text);
    m_notice->show();
}

void HomeWindow::present()
{
    refresh();
    showNormal();
    raise();
    activateWindow();
}

} // namespace Kovrel
