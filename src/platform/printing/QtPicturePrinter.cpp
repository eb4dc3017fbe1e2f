#include "platform/printing/QtPicturePrinter.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/plugins/PluginPicturePrinter.h"
#include "platform/printing/PrintedPage.h"

#include <QCoreApplication>
#include <QPrintDialog>
#include <QPrinter>

namespace Kovrel {

namespace {

std::shared_ptr<QPrinter> printerFor(const QImage& picture, const QString& title)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    const bool isWide = picture.width() > picture.height();
    printer->setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer->setDocName(title);
    return printer;
}

PicturePrinter::Outcome printed(QPrinter& printer, const QImage& picture)
{
    if (PrintedPage::draw(printer, picture))
        return {};
    return std::unexpected(QCoreApplication::translate("PicturePrinter", "The printer takes no page."));
}

} // namespace

void QtPicturePrinter::print(const QImage& picture, const QString& title, QWindow* parent, Reply<Outcome> reply)
{
    const auto printer = printerFor(picture, title);
    auto* const dialog = new QPrintDialog(printer.get());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->winId(); // makes the window, which has to know its parent before it shows
    dialog->windowHandle()->setTransientParent(parent);
    const auto job = Guarded::orReason([printer, picture] { return printed(*printer, picture); });
    QObject::connect(dialog, &QPrintDialog::finished, dialog, [this, job, reply = std::move(reply)](int result) {
        if (result == QDialog::Accepted)
            replyFromWorker<Outcome>(m_loop, m_workers, Lane::utility, job, reply);
        else
            m_loop.post([reply] { reply({}); });
    });
    dialog->show();
}

} // namespace Kovrel

extern "C" Q_DECL_EXPORT Kovrel::PicturePrinter* kovrelMakePicturePrinter(Kovrel::MainLoop& loop,
                                                                          Kovrel::Workers& workers)
{
    return new Kovrel::QtPicturePrinter(loop, workers);
}
