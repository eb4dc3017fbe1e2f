#pragma once

#include <QHash>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// Where the history's files lie. Their names are made of identities alone, so nothing that a record says leads out of
// the folder. Any thread; what touches the disk is not for the main one.
class HistoryFiles {
public:
    explicit HistoryFiles(QString folder) : m_folder(std::move(folder)) {}

    QString folder() const { return m_folder; }

    QString index() const { return m_folder + "/index.json"; }

    QString lists() const { return m_folder + "/lists.json"; }

    QString lock() const { return m_folder + "/.lock"; }

    QString base(QUuid id) const { return path(id, ".png"); } // as it was captured

    QString edited(QUuid id) const { return path(id, "_edited.png"); }

    QString thumbnail(QUuid id) const { return path(id, "_thumb.jpg"); }

    QString annotations(QUuid id) const { return path(id, "_annotations.json"); }

    QString backdrop(QUuid id) const { return path(id, "_backdrop.json"); }

    // The picture of a capture as it looks: the edited one, where there is one.
    QString full(QUuid id) const;
    void remove(QUuid id) const; // all of a capture
    // Of the captures as they were taken, as far as their files tell.
    QHash<QUuid, QSize> pixelSizes(const std::vector<QUuid>& ids) const;

    // Every file in the folder; nothing where it can't be read.
    std::optional<QStringList> names() const;
    // Whose file that is; nothing for those of no capture.
    static std::optional<QUuid> owner(const QString& name);
    // The captures whose base picture is there; nothing where the folder can't be read.
    std::optional<QSet<QUuid>> captures() const;

private:
    QString path(QUuid id, const char* ending) const;
    // False where the folder can't be read.
    bool forEachName(const std::function<void(QByteArrayView)>& use) const;

    QString m_folder;
};

} // namespace Kovrel
