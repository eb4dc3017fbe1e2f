#pragma once

#include "platform/PicturePrinter.h"

#include <memory>

namespace Kovrel {

class MainLoop;
class Workers;

// The printer of the plugin "printing", which is loaded when something is printed first.
class PluginPicturePrinter : public PicturePrinter {
public:
    // Both outlive it.
    PluginPicturePrinter(MainLoop& loop, Workers& workers) : m_loop(loop), m_workers(workers) {}

    void print(const QImage& picture, const QString& title, QWindow* parent, Reply<Outcome> reply) override;

    // What the plugin exports, as `kovrelMakePicturePrinter`.
    using Factory = PicturePrinter* (*)(MainLoop&, Workers&);

private:
    Outcome load();

    MainLoop& m_loop;
    Workers& m_workers;
    std::unique_ptr<PicturePrinter> m_printer;
};

} // namespace Kovrel
