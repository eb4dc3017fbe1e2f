#pragma once

#include "model/BackdropChips.h"
#include "preferences/Settings.h"

namespace Kovrel {

// The settings by their typed keys, and those reads that follow more than one of them. Reads are safe on any thread,
// changes are for the main thread.
class Preferences {
public:
    explicit Preferences(UserDefaults& defaults) : m_defaults(defaults) {}

    static void registerDefaults(UserDefaults& defaults);

    UserDefaults& defaults() { return m_defaults; }

    const UserDefaults& defaults() const { return m_defaults; }

    // What is stored, else what is registered, else the type's zero; what can't be read as the type counts as not
    // stored.
    template <class T>
    T get(const SettingKey<T>& key) const
    {
        return SettingValue<T>::read(m_defaults, key);
    }

    // `stored` is told whether it could be written.
    template <class T>
    void set(const SettingKey<T>& key, const std::type_identity_t<T>& value,
             const Reply<UserDefaults::Stored>& stored = {})
    {
        m_defaults.set(key.name, SettingValue<T>::stored(value), stored);
    }

    template <class T>
    bool isStored(const SettingKey<T>& key) const
    {
        return m_defaults.isStored(key.name);
    }

    template <class T>
    void remove(const SettingKey<T>& key)
    {
        m_defaults.remove(key.name);
    }

    // What is below 1 counts as 5, what is longer than a day as a day.
    int selfTimerSeconds() const;

    // A tool's own value, else what is usual for that tool, else the global value.
    QString toolColorHex(EditorTool tool) const;
    void setToolColorHex(const QString& hex, EditorTool tool);
    double toolStrokeWidth(EditorTool tool) const;
    AnnotationFillStyle toolFillStyle(EditorTool tool) const;
    void setToolFillStyle(AnnotationFillStyle style, EditorTool tool);
    bool toolRoundedCorners(EditorTool tool) const;

    QStringList backdropRowOrder(BackdropChips chips) const;
    void setBackdropRowOrder(const QStringList& order, BackdropChips chips);
    QStringList hiddenBackdropChips(BackdropChips chips) const;
    void setHiddenBackdropChips(const QStringList& hidden, BackdropChips chips);

    // "Kovrel" in the user's documents folder.
    static QString defaultSaveDirectory();
    static bool ensureDefaultSaveDirectoryExists();
    // None where the user has chosen none, or what is stored makes no sense. On any thread.
    std::optional<QString> chosenSaveDirectory() const;
    // The chosen folder; the default one when none was chosen or the chosen one is not there. On any thread.
    QString resolvedSaveDirectory() const;
    void setSaveDirectory(const QString& path);

private:
    UserDefaults& m_defaults;
};

} // namespace Kovrel
