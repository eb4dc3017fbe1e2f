#include "platform/desktop/KdeShortcuts.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QKeySequence>

namespace Kovrel {

namespace {

constexpr const char* component = "org.kde.spectacle.desktop"; // the desktop's own tool
constexpr int patienceMilliseconds = 5000;
constexpr QChar separator('\n'); // between the parts of an action's name

// The answer's only value; none when nobody answers.
QVariant ask(const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall("org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel", method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patienceMilliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage)
        return {};
    return answer.arguments().isEmpty() ? QVariant(true) : answer.arguments().front();
}

template <class T>
QList<T> listOf(const QVariant& value)
{
    return value.canConvert<QDBusArgument>() ? qdbus_cast<QList<T>>(value) : QList<T>();
}

QVariant keysOf(const QStringList& accelerators)
{
    QList<int> keys;
    for (const QString& accelerator : accelerators)
        keys << accelerator.toInt();
    return QVariant::fromValue(keys);
}

// Recorded on an American keyboard, Super+Shift+3 is stored as Meta+#: what the key types then, without the shift.
QKeyCombination unshifted(QKeyCombination keys)
{
    constexpr std::string_view typed = ")!@#$%^&*(";
    const size_t digit = typed.find(char(keys.key()));
    if (keys.key() > 0x7f || digit == std::string_view::npos)
        return keys;
    return QKeyCombination(keys.keyboardModifiers() | Qt::ShiftModifier, Qt::Key(Qt::Key_0 + int(digit)));
}

} // namespace

std::vector<ShortcutSwitches::Shortcut> KdeShortcuts::shortcuts()
{
    std::vector<Shortcut> found;
    for (const QStringList& action :
         listOf<QStringList>(ask("allActionsForComponent", {QStringList{component, "", "", ""}}))) {
        QStringList accelerators;
        for (const int key : listOf<int>(ask("shortcut", {action})))
            if (key != 0)
                accelerators << QString::number(key);
        found.push_back({action.join(separator), accelerators});
    }
    return found;
}

bool KdeShortcuts::set(const Shortcut& shortcut)
{
    qDBusRegisterMetaType<QList<int>>();
    return ask("setForeignShortcut", {shortcut.id.split(separator), keysOf(shortcut.accelerators)}).isValid();
}

std::optional<KeyCombo> KdeShortcuts::combo(const QString& accelerator) const
{
    const QKeyCombination keys = unshifted(QKeyCombination::fromCombined(accelerator.toInt()));
    const Qt::KeyboardModifiers modifiers = keys.keyboardModifiers();
    auto combo = KeyCombo::fromText(QKeySequence(keys.key()).toString(QKeySequence::PortableText));
    if (combo)
        combo->modifiers = (modifiers & Qt::MetaModifier ? KeyCombo::command : 0u) |
                           (modifiers & Qt::ShiftModifier ? KeyCombo::shift : 0u) |
                           (modifiers & Qt::AltModifier ? KeyCombo::option : 0u) |
                           (modifiers & Qt::ControlModifier ? KeyCombo::control : 0u);
    return combo;
}

} // namespace Kovrel
