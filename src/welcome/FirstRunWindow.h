#pragma once

#include "ui/AppWindow.h"
#include "welcome/DonePage.h"
#include "welcome/FirstRun.h"
#include "welcome/HotkeysPage.h"

#include <map>

class QStackedWidget;

namespace Kovrel {

class PlainButton;
class PrimaryButton;
class ProgressDots;
class TryOutPage;

// The first minute with the program, page by page. It never loses what was done: closed early, it goes on where it was.
// Return goes on, Alt+Left goes back, Escape closes. Main thread.
class FirstRunWindow : public AppWindow {
    Q_OBJECT

public:
    struct Services {
        HotkeysPage::Services hotkeys;
        DonePage::Login login;
        bool hasTray = false;
        bool isSignedIn = false;
        std::function<void()> signIn;
        std::function<void()> capture; // an area, as its hotkey does
        std::function<bool()> showsCards;
        // It was closed; whether for good is said by `isSettled`.
        std::function<void()> closed;
    };

    explicit FirstRunWindow(Services services);

    void present();
    // Shows what is so now.
    void refresh();

    void setSignedIn(bool isSignedIn);
    void noteCapture();

    bool isSettled() const { return m_run.isSettled(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makePages();
    void add(FirstRunStep step, FirstRunPage* page);
    QLayout* makeFooter();
    void act();
    void goBack();
    void skip();
    void showStep();
    void fadeIn(QWidget& page);
    void refreshFooter();
    void setSizes();
    QString actionTitle() const;
    QString areaKeys() const;

    Services m_services;
    FirstRun m_run;
    QStackedWidget* m_stack;
    std::map<FirstRunStep, FirstRunPage*> m_pages;
    HotkeysPage* m_hotkeys;
    TryOutPage* m_tryOut;
    DonePage* m_done;
    PlainButton* m_back;
    PlainButton* m_skip;
    PrimaryButton* m_action;
    ProgressDots* m_dots;
    Subscription m_settingChanges;
};

} // namespace Kovrel
