#pragma once

#include "editorwindow/backdrop/BackdropEditing.h"
#include "editorwindow/backdrop/BackdropSwatches.h"
#include "editorwindow/backdrop/SwatchSection.h"
#include "model/BackdropChips.h"

namespace Kovrel {

// What a capture can be set on: whole looks, among them those that the user saved; gradients, pictures, colours. They
// are dragged into another order, hidden and added. Main thread.
class BackdropFills : public QWidget {
    Q_OBJECT

public:
    // All of them outlive it.
    BackdropFills(BackdropEditing& editing, BackdropSwatches& swatches, Preferences& preferences);

    // Shows what is chosen and what is offered.
    void refresh();

private:
    SwatchSection* addSection(const QString& title, const SettingKey<bool>& isUnfolded);
    SwatchSection* addRow(const QString& title, BackdropChips row, const SettingKey<bool>& isUnfolded);
    void refreshLooks(const EditorBackdrop& shown);
    void refreshRow(BackdropChips row, const EditorBackdrop& shown);
    void chooseLook(const QString& id);
    void chooseFill(BackdropChips row, const QString& id);
    void offerLook(const QString& id, QPoint globalPosition);
    void offerFill(BackdropChips row, const QString& id, QPoint globalPosition);
    void askForName(const QString& title, const QString& suggestion, std::function<void(const QString&)> named);
    void savePreset();
    void addColor();
    void addPicture();
    void takeOwn(BackdropChips row, BackdropFill::Kind kind, const QString& value);

    BackdropEditing& m_editing;
    BackdropSwatches& m_swatches;
    Preferences& m_preferences;
    SwatchSection* m_looks;
    std::map<BackdropChips, SwatchSection*> m_rows;
};

} // namespace Kovrel
