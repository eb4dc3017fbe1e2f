#pragma once

#include "platform/TextRecogniser.h"

#include <memory>

namespace Kovrel {

// The recogniser of the plugin "text", which is loaded with the first picture: its library and its models are larger
// than the rest of the program.
class PluginTextRecogniser : public TextRecogniser {
public:
    Outcome recognise(const QImage& picture, const Request& request) override;
    QStringList installedLanguages() override;
    QDateTime modelsChanged(const QStringList& languages) override;
    void releaseMemory() override;

    // What the plugin exports, as `kovrelMakeTextRecogniser`.
    using Factory = TextRecogniser* (*)();

private:
    std::expected<void, QString> load();

    std::unique_ptr<TextRecogniser> m_recogniser;
};

} // namespace Kovrel
