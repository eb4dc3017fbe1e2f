#include "welcome/FirstRunWindow.h"

#include "hotkeys/HotkeySettings.h"
#include "ui/LookChanges.h"
#include "ui/PrimaryButton.h"
#include "ui/controls/PlainButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Motion.h"
#include "ui/tokens/Typography.h"
#include "welcome/FirstRunDrawing.h"
#include "welcome/GreetingPage.h"
#include "welcome/ProgressDots.h"
#include "welcome/TryOutPage.h"

#include <QGraphicsOpacityEffect>
#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QPropertyAnimation>
#include <QShortcut>
#include <QStackedWidget>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int pageWidth = 500;
constexpr int accountWidth = 220;

} // namespace

FirstRunWindow::FirstRunWindow(Services services)
    : m_services(std::move(services)), m_run(m_services.isSignedIn), m_stack(new QStackedWidget)
{
    setWindowTitle(tr("Welcome to Kovrel"));
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    makePages();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::large);
    layout->setSpacing(Spacing::large);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_stack);
    layout->addLayout(makeFooter());
    // No key event of its own: buttons take the arrow for themselves.
    new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this, [this] { goBack(); });
    connect(&LookChanges::shared(), &LookChanges::changed, this, &FirstRunWindow::setSizes);
    m_settingChanges = m_services.hotkeys.preferences.defaults().onChange([this](const QString&) { refresh(); });
    refresh();
    showStep();
}

void FirstRunWindow::makePages()
{
    auto* const account = new FirstRunPage;
    account->addAbove(new FirstRunDrawing(FirstRunDrawing::Subject::account, accountWidth));
    account->setTexts(tr("Your account stays here"),
                      tr("Kovrel works with an account that is kept on this computer. There is nothing to fill in, and "
                         "nothing is sent anywhere."));
    add(FirstRunStep::greeting, new GreetingPage);
    add(FirstRunStep::account, account);
    add(FirstRunStep::hotkeys, m_hotkeys = new HotkeysPage(m_services.hotkeys));
    add(FirstRunStep::tryOut, m_tryOut = new TryOutPage);
    add(FirstRunStep::done, m_done = new DonePage(m_services.hasTray, m_services.login));
}

void FirstRunWindow::add(FirstRunStep step, FirstRunPage* page)
{
    m_pages[step] = page;
    m_stack->addWidget(page);
}

// The first button is also the first for the tabulator.
QLayout* FirstRunWindow::makeFooter()
{
    m_action = new PrimaryButton({});
    m_skip = new PlainButton(tr("Skip"));
    m_back = new PlainButton(tr("Back"));
    m_dots = new ProgressDots;
    connect(m_action, &QPushButton::clicked, this, &FirstRunWindow::act);
    connect(m_skip, &QPushButton::clicked, this, &FirstRunWindow::skip);
    connect(m_back, &QPushButton::clicked, this, &FirstRunWindow::goBack);
    auto* const onwards = new QHBoxLayout;
    onwards->setSpacing(Spacing::small);
    onwards->addWidget(m_skip);
    onwards->addWidget(m_action);
    auto* const footer = new QGridLayout;
    footer->setHorizontalSpacing(Spacing::small);
    footer->addWidget(m_back, 0, 0, Qt::AlignLeft);
    footer->addWidget(m_dots, 0, 1);
    footer->addLayout(onwards, 0, 2, Qt::AlignRight);
    footer->setColumnStretch(0, 1);
    footer->setColumnStretch(2, 1);
    return footer;
}

// --- What it shows

void FirstRunWindow::present()
{
    refresh();
    comeForward();
}

void FirstRunWindow::refresh()
{
    m_hotkeys->refresh();
    m_tryOut->show(m_run.hasCaptured(), areaKeys(), m_services.showsCards());
    m_done->refresh();
    refreshFooter();
    setSizes();
}

void FirstRunWindow::refreshFooter()
{
    m_back->setVisible(m_run.canGoBack());
    m_skip->setVisible(m_run.canSkip());
    m_action->setText(actionTitle());
    m_dots->setProgress(m_run.index(), m_run.steps().size());
}

QString FirstRunWindow::actionTitle() const
{
    switch (m_run.action()) {
    case FirstRun::Action::goOn:
        return tr("Continue");
    case FirstRun::Action::signIn:
        return tr("Use Kovrel on This Computer");
    case FirstRun::Action::capture:
        return tr("Try It Now");
    case FirstRun::Action::finish:
        return tr("Start Using Kovrel");
    }
    Q_UNREACHABLE();
}

QString FirstRunWindow::areaKeys() const
{
    const auto combo = HotkeySettings::combo(m_services.hotkeys.preferences, CommandTable::entryOf(HotkeyAction::area));
    return combo ? combo->title() : QString();
}

void FirstRunWindow::showStep()
{
    FirstRunPage* const page = m_pages.at(m_run.step());
    const bool isOther = m_stack->currentWidget() != page;
    m_stack->setCurrentWidget(page);
    refreshFooter();
    m_action->setFocus();
    if (isOther && isVisible())
        fadeIn(*page);
}

void FirstRunWindow::fadeIn(QWidget& page)
{
    if (Motion::shared().isReduced())
        return;
    auto* const effect = new QGraphicsOpacityEffect(&page);
    page.setGraphicsEffect(effect);
    auto* const fade = new QPropertyAnimation(effect, "opacity", effect);
    fade->setDuration(int(Motion::shared().moving().count()));
    fade->setEasingCurve(Motion::easing);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    connect(fade, &QPropertyAnimation::finished, &page, [&page] { page.setGraphicsEffect(nullptr); });
    fade->start();
}

// As high as the highest page, so that nothing moves from one to the next.
void FirstRunWindow::setSizes()
{
    const int width = int(pageWidth * Typography::scale());
    int height = 0;
    for (const auto& [step, page] : m_pages)
        height = std::max(height, page->layout()->totalHeightForWidth(width));
    m_stack->setFixedSize(width, height);
}

// --- What is done

void FirstRunWindow::act()
{
    switch (m_run.action()) {
    case FirstRun::Action::goOn:
        m_run.goOn();
        return showStep();
    case FirstRun::Action::signIn:
        return m_services.signIn();
    case FirstRun::Action::capture:
        return m_services.capture();
    case FirstRun::Action::finish:
        close();
    }
}

void FirstRunWindow::goBack()
{
    m_run.goBack();
    showStep();
}

void FirstRunWindow::skip()
{
    m_run.goOn();
    showStep();
}

void FirstRunWindow::setSignedIn(bool isSignedIn)
{
    m_run.setSignedIn(isSignedIn);
    showStep();
}

void FirstRunWindow::noteCapture()
{
    m_run.noteCapture();
    refresh();
}

void FirstRunWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close))
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        act();
    else
        AppWindow::keyPressEvent(event);
}

void FirstRunWindow::closeEvent(QCloseEvent* event)
{
    AppWindow::closeEvent(event);
    m_services.closed();
}

} // namespace Kovrel
