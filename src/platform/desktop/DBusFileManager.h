#pragma once

#include "platform/FileManager.h"

namespace Kovrel {

// The file manager that answers on the session bus; without one, the folder is opened by whatever opens folders.
class DBusFileManager : public FileManager {
public:
    void reveal(const QString& path) override;
};

} // namespace Kovrel
