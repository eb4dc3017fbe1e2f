#pragma once

#include "editorwindow/backdrop/BackdropEditing.h"
#include "editorwindow/tools/AmountSlider.h"
#include "model/ColorPick.h"

#include <QWidget>

class QCheckBox;
class QVBoxLayout;

namespace Kovrel {

class AlignmentPad;
class ChoiceButton;
class ColorWell;
class LightPad;

// How a capture stands on its backdrop: space, corners, position, shape, shadow, frame. What is dragged is seen at once
// and is one step. Main thread.
class BackdropControls : public QWidget {
    Q_OBJECT

public:
    // Both outlive it.
    BackdropControls(BackdropEditing& editing, Preferences& preferences, ColorPick pick);

    void refresh();

private:
    struct Amount {
        AmountSlider* slider;
        double EditorBackdrop::* field;
    };

    void addTitle(const QString& text);
    void addAmount(const QString& name, AmountSlider::Range range, double EditorBackdrop::* field, const QString& part);
    void addChoice(const QString& name, ChoiceButton* button);
    void addPads();
    void addShape();
    void addShadow();
    void addFrame(Preferences& preferences, ColorPick pick);
    QCheckBox* makeSwitch(const QString& name, bool EditorBackdrop::* field);
    void choose(const std::function<void(EditorBackdrop&)>& change);

    BackdropEditing& m_editing;
    QVBoxLayout* m_layout;
    QString m_title; // of what is being added
    std::vector<Amount> m_amounts;
    std::vector<std::pair<QCheckBox*, bool EditorBackdrop::*>> m_switches;
    AmountSlider* m_blur = nullptr; // among the amounts
    AlignmentPad* m_alignment;
    LightPad* m_light;
    ChoiceButton* m_aspect;
    ChoiceButton* m_shadow;
    ColorWell* m_frameColor;
};

} // namespace Kovrel
