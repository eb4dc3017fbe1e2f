#pragma once

#include "model/AfterCaptureActions.h"
#include "model/AnnotationFillStyle.h"
#include "model/AnnotationTextStyle.h"
#include "model/AutoCloseAction.h"
#include "model/BackdropChips.h"
#include "model/CaptureSound.h"
#include "model/EditorTool.h"
#include "model/ImageFormat.h"
#include "model/KeyCombo.h"
#include "model/MeasureUnit.h"
#include "model/WindowBackdropStyle.h"
#include "platform/UserDefaults.h"

namespace Kovrel {

// The typed reads of the settings whose values need conversion; plain ones are read from the defaults by their key.
// An unknown or missing text reads as the registered default. Main thread.
class Preferences {
public:
    explicit Preferences(UserDefaults& defaults) : m_defaults(defaults) {}

    static void registerDefaults(UserDefaults& defaults);

    UserDefaults& defaults() { return m_defaults; }

    const UserDefaults& defaults() const { return m_defaults; }

    AfterCaptureActions afterCaptureActions() const;
    AutoCloseAction autoCloseAction() const;
    CaptureSound captureSound() const;
    QString fileNameTemplate() const;
    ImageFormat imageFormat() const;
    MeasureUnit measureUnit() const;
    int selfTimerSeconds() const;
    WindowBackdropStyle windowBackdropStyle() const;
    std::optional<KeyCombo> hotkey(const QString& key) const;

    AnnotationFillStyle annotationFillStyle() const;
    AnnotationTextStyle annotationTextStyle() const;
    void setAnnotationTextStyle(AnnotationTextStyle style);

    // A tool's own value, else what is usual for that tool, else the global value.
    QString toolColorHex(EditorTool tool) const;
    void setToolColorHex(const QString& hex, EditorTool tool);
    double toolStrokeWidth(EditorTool tool) const;
    AnnotationFillStyle toolFillStyle(EditorTool tool) const;
    void setToolFillStyle(AnnotationFillStyle style, EditorTool tool);
    bool toolRoundedCorners(EditorTool tool) const;

    // The JSON of the backdrops, as it is stored.
    QByteArray backdropPresets() const;
    void setBackdropPresets(const QByteArray& json);
    QByteArray lastBackdrop() const;
    void setLastBackdrop(const QByteArray& json);
    QStringList backdropCustomColors() const;
    QStringList backdropRowOrder(BackdropChips chips) const;
    void setBackdropRowOrder(const QStringList& order, BackdropChips chips);
    QStringList hiddenBackdropChips(BackdropChips chips) const;
    void setHiddenBackdropChips(const QStringList& hidden, BackdropChips chips);

    // "Kovrel" in the user's documents folder.
    static QString defaultSaveDirectory();
    static bool ensureDefaultSaveDirectoryExists();
    // The chosen folder; the default one when none was chosen or the chosen one is not there. On any thread.
    QString resolvedSaveDirectory() const;
    void setSaveDirectory(const QString& path);

private:
    template <class Enum>
    Enum enumerated(const QString& key, Enum fallback) const;

    UserDefaults& m_defaults;
};

} // namespace Kovrel
