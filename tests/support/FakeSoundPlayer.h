#pragma once

#include "platform/SoundPlayer.h"

#include <string>
#include <vector>

namespace Kovrel::Testing {

// Keeps a log of what becomes of an audio service: opened, closed, and every sound with its volume. Like the real
// player it opens when it is asked to play, does nothing twice, and fails while there is no service.
class FakeSoundPlayer : public SoundPlayer {
public:
    struct Service {
        bool isThere = true;
        std::vector<std::string> log;
    };

    explicit FakeSoundPlayer(Service& service) : m_service(service) {}

    Outcome open() override
    {
        if (!m_service.isThere) {
            m_isOpen = false;
            return std::unexpected("no service");
        }
        if (!std::exchange(m_isOpen, true))
            m_service.log.push_back("open");
        return {};
    }

    Outcome play(const QString& sound, double volume) override
    {
        const Outcome opened = open();
        if (opened)
            m_service.log.push_back(sound.toStdString() + " " + QString::number(volume).toStdString());
        return opened;
    }

    void close() override
    {
        if (std::exchange(m_isOpen, false))
            m_service.log.push_back("close");
    }

private:
    Service& m_service;
    bool m_isOpen = false;
};

} // namespace Kovrel::Testing
