#pragma once

#include "app/commands/TextCommand.h"
#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "platform/plugins/PluginCodeReader.h"
#include "ports/Ports.h"
#include "reading/RecognitionTextReader.h"
#include "recognition/codes/QRCodeDetector.h"
#include "recognition/text/VisionOCREngine.h"

namespace Kovrel {

// Text and codes in pictures.
class ReadingFeature : public Feature {
public:
    ReadingFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() override;

private:
    Foundation& m_foundation;
    VisionOCREngine m_recognition;
    PluginCodeReader m_codeReader;
    QRCodeDetector m_codes;
    RecognitionTextReader m_textReader;
    TextCommand m_textCommand;
};

} // namespace Kovrel
