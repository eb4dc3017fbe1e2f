#pragma once

#include "platform/TextRecogniser.h"

#include <chrono>
#include <functional>
#include <memory>

namespace Kovrel {

// A recogniser that can't hang: it works on a thread of its own, and one that makes no progress for too long is left to
// itself, logged, and replaced. Its thread and memory are lost until it comes back, which is better than a lane that
// is blocked for everybody. Used like any recogniser.
class PatientRecogniser : public TextRecogniser {
public:
    using Make = std::function<std::unique_ptr<TextRecogniser>()>;

    struct Patience {
        std::chrono::milliseconds withoutProgress{60'000};
        std::chrono::milliseconds onceStopped{10'000}; // until a stopped one has ended its line
    };

    explicit PatientRecogniser(Make make) : PatientRecogniser(std::move(make), Patience()) {}

    PatientRecogniser(Make make, Patience patience) : m_make(std::move(make)), m_patience(patience) {}

    Outcome recognise(const QImage& picture, const Request& request) override;
    QStringList installedLanguages() override;
    QDateTime modelsChanged(const QStringList& languages) override;
    void releaseMemory() override;

private:
    class Attempt;

    TextRecogniser& recogniser();

    Make m_make;
    Patience m_patience;
    std::shared_ptr<TextRecogniser> m_recogniser; // shared with the thread that uses it
};

} // namespace Kovrel
