#pragma once

#include "editorwindow/crop/CropReadings.h"

#include <QWidget>

class QHBoxLayout;
class QPushButton;

namespace Kovrel {

class ChoiceButton;
class CropSizeMenu;
class SymbolButton;

// What stands below the canvas while a crop is chosen: its shape, its output size with what that takes, and the end.
// Main thread.
class CropBar : public QWidget {
    Q_OBJECT

public:
    // All of them outlive it.
    CropBar(EditorSession& session, const Preferences& preferences, MainLoop& loop, Workers& workers);

    // Offers the output sizes, with the lower left corner of the menu there.
    void offerSizes(QPoint globalPosition);

Q_SIGNALS:
    // Width over height, where a crop is held to one.
    void aspectChosen(std::optional<double> aspect);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addButton(const QString& text, void (CropBar::*action)());
    void refresh();
    Rect crop() const;
    void chooseShape(int index);
    void hold(std::optional<double> aspect);
    void lock(bool isLocked);
    void take(std::optional<Rect> crop, const CropOutputSize& size);
    void reset();
    void cancel();
    void apply();
    void watch();

    EditorSession& m_session;
    CropReadings m_readings;
    QHBoxLayout* m_layout;
    ChoiceButton* m_shape;
    SymbolButton* m_lock;
    QPushButton* m_size;
    CropSizeMenu* m_menu;
    std::optional<double> m_aspect;
    EditorComposition m_before; // when it was opened
    Subscription m_changes;
};

} // namespace Kovrel
