#pragma once

#include "platform/Reply.h"

#include <QImage>
#include <QString>
#include <QWindow>

#include <expected>

namespace Kovrel {

// Prints pictures. Main thread; pages are made elsewhere.
class PicturePrinter {
public:
    using Outcome = std::expected<void, QString>; // the failure is one line, for people

    virtual ~PicturePrinter() = default;

    // Asks the user how, in a dialog above `parent` that blocks nothing, and puts the picture on one page, as large as
    // it can be and in the middle. Answers when the page is on its way, or nobody wants it any more.
    virtual void print(const QImage& picture, const QString& title, QWindow* parent, Reply<Outcome> reply) = 0;
};

} // namespace Kovrel
