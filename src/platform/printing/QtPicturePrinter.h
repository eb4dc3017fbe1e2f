#pragma once

#include "platform/MainLoop.h"
#include "platform/PicturePrinter.h"
#include "platform/Workers.h"

namespace Kovrel {

// Prints with the toolkit, which asks CUPS where that is there, and can make a PDF file always.
class QtPicturePrinter : public PicturePrinter {
public:
    // Both outlive it.
    QtPicturePrinter(MainLoop& loop, Workers& workers) : m_loop(loop), m_workers(workers) {}

    void print(const QImage& picture, const QString& title, QWindow* parent, Reply<Outcome> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
};

} // namespace Kovrel
