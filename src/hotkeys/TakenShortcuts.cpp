#include "hotkeys/TakenShortcuts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Kovrel {

namespace {

QStringList textsOf(const QJsonValue& value)
{
    QStringList texts;
    for (const QJsonValue text : value.toArray())
        texts << text.toString();
    return texts;
}

} // namespace

QStringList TakenShortcut::left() const
{
    QStringList rest = original.accelerators;
    rest.removeIf([this](const QString& accelerator) { return taken.contains(accelerator); });
    return rest;
}

QByteArray TakenShortcuts::toJson(const std::vector<TakenShortcut>& shortcuts)
{
    QJsonArray array;
    for (const TakenShortcut& shortcut : shortcuts)
        array.append(QJsonObject{{"shortcut", shortcut.original.id},
                                 {"accelerators", QJsonArray::fromStringList(shortcut.original.accelerators)},
                                 {"taken", QJsonArray::fromStringList(shortcut.taken)}});
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::vector<TakenShortcut> TakenShortcuts::fromJson(const QByteArray& json)
{
    std::vector<TakenShortcut> shortcuts;
    for (const QJsonValue value : QJsonDocument::fromJson(json).array())
        shortcuts.push_back({{value["shortcut"].toString(), textsOf(value["accelerators"])}, textsOf(value["taken"])});
    return shortcuts;
}

} // namespace Kovrel
