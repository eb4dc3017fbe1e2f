#pragma once

namespace Kovrel::Testing {

// While it lives, this process's file system is one as on memory cards and shares: it knows no permissions and no files
// without a name, and may tell only at the closing of a file that its bytes could not be kept.
class PoorFileSystem {
public:
    enum class Closing { works, fails };

    explicit PoorFileSystem(Closing closing = Closing::works);
    ~PoorFileSystem();
    PoorFileSystem(const PoorFileSystem&) = delete;
    PoorFileSystem& operator=(const PoorFileSystem&) = delete;
};

} // namespace Kovrel::Testing
