#include "ui/Questions.h"

#include <QMessageBox>
#include <QPushButton>

namespace Kovrel {

void Questions::ask(QWidget& over, const Question& question, std::function<void()> wanted,
                    std::function<void()> unwanted)
{
    auto* const box =
        new QMessageBox(QMessageBox::Question, over.window()->windowTitle(), question.text, QMessageBox::Cancel, &over);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(question.explanation);
    const auto* const yes = box->addButton(question.answer, QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(box, &QMessageBox::finished, &over,
                     [box, yes, wanted = std::move(wanted), unwanted = std::move(unwanted)] {
                         (box->clickedButton() == yes ? wanted : unwanted)();
                     });
    box->open();
}

} // namespace Kovrel
