#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace Kovrel {

// What is done with kovrel://HOST…
struct UrlHandler {
    QString host;
    std::function<void(const QUrl&)> handle;
};

} // namespace Kovrel
