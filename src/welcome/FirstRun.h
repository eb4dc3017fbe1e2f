#pragma once

#include <cstddef>
#include <vector>

namespace Kovrel {

// The pages of the first run, in their order.
enum class FirstRunStep { greeting, account, hotkeys, tryOut, done };

// Which page of the first run is shown, and what its first button does. Pages are kept when it is looked at again.
class FirstRun {
public:
    enum class Action { goOn, signIn, capture, finish };

    // Whoever is signed in already has no page about the account.
    explicit FirstRun(bool isSignedIn);

    const std::vector<FirstRunStep>& steps() const { return m_steps; }

    // Among the steps.
    size_t index() const { return m_index; }

    FirstRunStep step() const { return m_steps[m_index]; }

    Action action() const;

    bool canGoBack() const { return m_index > 0; }

    // Without doing what the page asks for. An account is needed for all that comes after it.
    bool canSkip() const { return action() == Action::capture; }

    void goBack();
    void goOn();

    // Goes on from the page about the account, or back to it.
    void setSignedIn(bool isSignedIn);

    // None is asked for any more.
    void noteCapture() { m_hasCaptured = true; }

    bool hasCaptured() const { return m_hasCaptured; }

    // It need not come again: nothing more is needed to work with the program.
    bool isSettled() const { return m_isSignedIn; }

private:
    std::vector<FirstRunStep> m_steps;
    size_t m_index = 0;
    bool m_isSignedIn;
    bool m_hasCaptured = false;
};

} // namespace Kovrel
