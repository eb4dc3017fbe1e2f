#include "platform/desktop/QtSavePanel.h"

#include <QFileDialog>
#include <QFileInfo>

namespace Kovrel {

void QtSavePanel::ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply)
{
    const QFileInfo suggested(suggestedPath);
    auto* const dialog = new QFileDialog(nullptr, QString(), suggested.absolutePath());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(suggested.suffix());
    dialog->selectFile(suggested.fileName());
    dialog->winId(); // makes the window, which has to know its parent before it shows
    dialog->windowHandle()->setTransientParent(parent);
    QObject::connect(dialog, &QFileDialog::finished, dialog, [dialog, reply = std::move(reply)](int result) {
        const QStringList chosen = dialog->selectedFiles();
        reply(result == QDialog::Accepted && !chosen.isEmpty() ? std::optional(chosen.first()) : std::nullopt);
    });
    dialog->show();
}

} // namespace Kovrel
