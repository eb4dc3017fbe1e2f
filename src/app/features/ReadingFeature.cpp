#include "app/features/ReadingFeature.h"

#include "app/commands/CodesCommand.h"
#include "app/foundation/CommandJob.h"
#include "platform/plugins/PluginTextRecogniser.h"
#include "reading/LanguageChoice.h"
#include "recognition/text/PatientRecogniser.h"
#include "settings/pages/TextPage.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

std::unique_ptr<TextRecogniser> makeRecogniser()
{
    return std::make_unique<PatientRecogniser>([] { return std::make_unique<PluginTextRecogniser>(); });
}

} // namespace

ReadingFeature::ReadingFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_recognition(foundation.loop, foundation.workers, makeRecogniser(),
                    [&preferences = foundation.preferences] { return preferences.get(Settings::textLanguages); }),
      m_codes(foundation.loop, foundation.workers, m_codeReader),
      m_textReader(foundation.loop, foundation.workers, m_recognition, m_codes,
                   [&foundation] { return LanguageChoice::changed(foundation.preferences, foundation.loop.date()); }),
      m_textCommand(foundation.loop, foundation.workers, m_recognition, m_codes, foundation.progress)
{
    ports.textReader.offer(m_textReader);
}

std::vector<CommandHandler> ReadingFeature::commands()
{
    return {
        {.command = "text",
         .run =
             [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 m_textCommand.run(invocation.command, invocation.requestID, reply);
             },
         .cancel = [this](quint64 requestID) { m_textCommand.cancel(requestID); }},
        {.command = "codes",
         .run =
             [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 CommandJob::run(
                     m_foundation, Lane::codes, [command = invocation.command] { return CodesCommand::run(command); },
                     reply);
             }},
    };
}

std::vector<SettingsPage> ReadingFeature::settingsPages()
{
    return {TextPage::make(m_foundation.preferences,
                           [this](const Reply<QStringList>& reply) { m_recognition.installedLanguages(reply); })};
}

std::unique_ptr<Feature> makeReadingFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<ReadingFeature>(foundation, ports);
}

} // namespace Kovrel
