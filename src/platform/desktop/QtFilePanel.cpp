#include "platform/desktop/QtFilePanel.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace Kovrel {

namespace {

void show(QFileDialog* dialog, QWindow* parent, Reply<std::optional<QString>> reply)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->winId(); // makes the window, which has to know its parent before it shows
    dialog->windowHandle()->setTransientParent(parent);
    QObject::connect(dialog, &QFileDialog::finished, dialog, [dialog, reply = std::move(reply)](int result) {
        const QStringList chosen = dialog->selectedFiles();
        reply(result == QDialog::Accepted && !chosen.isEmpty() ? std::optional(chosen.first()) : std::nullopt);
    });
    dialog->show();
}

} // namespace

void QtFilePanel::ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply)
{
    const QFileInfo suggested(suggestedPath);
    auto* const dialog = new QFileDialog(nullptr, QString(), suggested.absolutePath());
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(suggested.suffix());
    dialog->selectFile(suggested.fileName());
    show(dialog, parent, std::move(reply));
}

void QtFilePanel::askForFolder(const QString& path, QWindow* parent, Reply<std::optional<QString>> reply)
{
    auto* const dialog = new QFileDialog(nullptr, QString(), path);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    show(dialog, parent, std::move(reply));
}

void QtFilePanel::askForFile(const QString& kind, QWindow* parent, Reply<std::optional<QString>> reply)
{
    auto* const dialog = new QFileDialog(nullptr, QString(), QDir::homePath(), kind);
    dialog->setFileMode(QFileDialog::ExistingFile);
    show(dialog, parent, std::move(reply));
}

} // namespace Kovrel
