#include "editorwindow/DefaultEditorOffer.h"

#include "ui/Label.h"
#include "ui/PrimaryButton.h"
#include "ui/controls/RowButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QLatin1String ownProgram("com.kovrel.Kovrel.desktop");

// One name of each kind that Kovrel opens.
constexpr std::array fileNames{"a.png", "a.jpg", "a.heic", "a.tiff", "a.gif", "a.bmp", "a.webp"};

} // namespace

DefaultEditorOffer::DefaultEditorOffer(FilePrograms& programs, Preferences& preferences)
    : m_programs(programs), m_preferences(preferences)
{
    hide();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    auto* const question = new Label(TextStyle::body);
    question->setText(tr("Open pictures with Kovrel from now on?"));
    auto* const no = new RowButton(tr("Not Now"));
    auto* const yes = new PrimaryButton(tr("Open with Kovrel"));
    for (QWidget* const part : std::initializer_list<QWidget*>{question, no, yes})
        layout->addWidget(part, part == question ? 1 : 0);
    connect(no, &QPushButton::clicked, this, &QWidget::hide);
    connect(yes, &QPushButton::clicked, this, &DefaultEditorOffer::accept);
    if (!preferences.get(Settings::defaultEditorNudgeShown))
        programs.openers(fileNames.front(), m_lifeline.guard([this](const auto& openers) { ask(openers); }));
}

void DefaultEditorOffer::ask(const std::vector<FileProgram>& openers)
{
    const auto own = std::ranges::find(openers, ownProgram, &FileProgram::id);
    if (own == openers.end() || own == openers.begin())
        return;
    m_preferences.set(Settings::defaultEditorNudgeShown, true);
    show();
}

void DefaultEditorOffer::accept()
{
    for (const char* const name : fileNames)
        m_programs.prefer(name, ownProgram);
    hide();
}

void DefaultEditorOffer::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.accentGround);
}

} // namespace Kovrel
