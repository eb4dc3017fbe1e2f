#include "platform/desktop/PortalColorSampler.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TestBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>

#include <gtest/gtest.h>

namespace Kovrel {

struct PortalColor {
    double red = 0, green = 0, blue = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalColor& color)
{
    argument.beginStructure();
    argument << color.red << color.green << color.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalColor&)
{
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the toolkit's own signature
}

// Stands on the bus as the desktop's portal.
class SmallPortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")

public:
    enum class Manner { answers, choosesThePath, answersFirst, refuses, goesAway, waits };

    explicit SmallPortal(const QString& address) : m_bus(QDBusConnection::connectToBus(address, "portal"))
    {
        qDBusRegisterMetaType<PortalColor>();
        m_bus.registerObject("/org/freedesktop/portal/desktop", this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(name);
    }

    ~SmallPortal() override { QDBusConnection::disconnectFromBus("portal"); }

    static constexpr const char* name = "org.freedesktop.portal.Desktop";
    Manner manner = Manner::answers;
    uint response = 0;
    QVariant color;
    int calls = 0;

    void leave() { m_bus.unregisterService(name); }

public Q_SLOTS:

    QDBusObjectPath PickColor(const QString&, const QVariantMap& options)
    {
        ++calls;
        const QString sender = message().service().mid(1).replace('.', '_');
        const QString token = manner == Manner::choosesThePath ? "own" : options.value("handle_token").toString();
        const QString path = QString("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
        if (manner == Manner::refuses)
            sendErrorReply(QDBusError::AccessDenied, "no");
        else if (manner == Manner::answersFirst)
            respond(path);
        else if (manner == Manner::goesAway)
            QMetaObject::invokeMethod(this, &SmallPortal::leave, Qt::QueuedConnection);
        else if (manner != Manner::waits)
            QMetaObject::invokeMethod(this, [this, path] { respond(path); }, Qt::QueuedConnection);
        return QDBusObjectPath(path);
    }

private:
    void respond(const QString& path)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
        signal << response << QVariantMap{{"color", color}};
        m_bus.send(signal);
    }

    QDBusConnection m_bus;
};

namespace {

using Manner = SmallPortal::Manner;

struct PortalColorSamplerTest : testing::Test {
    Testing::TestBus bus;
    Testing::FakeMainLoop loop;
    std::unique_ptr<PortalColorSampler> sampler = std::make_unique<PortalColorSampler>(loop);
    int answers = 0;
    ColorSampler::Outcome outcome;

    void pick()
    {
        sampler->pick([this](const ColorSampler::Outcome& given) {
            ++answers;
            outcome = given;
        });
    }

    bool isAnswered() const { return answers > 0; }
};

} // namespace

TEST_F(PortalColorSamplerTest, ThePortalsAnswerIsTheColourOrNone)
{
    struct Case {
        const char* what;
        Manner manner;
        uint response;
        QVariant color;
        ColorSampler::Outcome expected;
    };

    const auto none = [](const char* reason) { return std::unexpected(QString(reason)); };

    const QVariant orange = QVariant::fromValue(PortalColor{1, 0.5, 0});
    const Case cases[] = {
        {"a colour", Manner::answers, 0, orange, QColor(255, 128, 0)},
        {"an answer before the call returns", Manner::answersFirst, 0, orange, QColor(255, 128, 0)},
        {"cancelled by the user", Manner::answers, 1, orange, none("")},
        {"a picker that does not run", Manner::answers, 2, orange, none("the desktop's colour picker has failed")},
        {"no colour", Manner::answers, 0, QVariant("red"), none("what the desktop's colour picker gave is no colour")},
        {"a colour that no screen has", Manner::answers, 0, QVariant::fromValue(PortalColor{2, 0, 0}),
         none("what the desktop's colour picker gave is no colour")},
        {"a refusal", Manner::refuses, 0, orange, none("the desktop has no colour picker either")},
        {"a portal that ends", Manner::goesAway, 0, orange, none("the desktop's colour picker has ended")},
    };
    SmallPortal portal(bus.address());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        portal.manner = c.manner;
        portal.response = c.response;
        portal.color = c.color;
        answers = 0;
        pick();
        ASSERT_TRUE(Testing::waitFor([this] { return isAnswered(); }));
        EXPECT_EQ(answers, 1);
        ASSERT_EQ(outcome.has_value(), c.expected.has_value());
        if (outcome)
            EXPECT_EQ(outcome->rgb(), c.expected->rgb());
        else
            EXPECT_EQ(outcome.error(), c.expected.error());
        EXPECT_EQ(loop.pendingTimers(), 0u);
    }
}

TEST_F(PortalColorSamplerTest, WithoutAPortalThereIsNoColour)
{
    pick();
    EXPECT_TRUE(Testing::waitFor([this] { return isAnswered(); }));
    EXPECT_EQ(outcome.error(), "the desktop has no colour picker either");
}

TEST_F(PortalColorSamplerTest, OneThatHangsIsGivenUpAndNothingComesAfterwards)
{
    SmallPortal portal(bus.address());
    portal.manner = Manner::waits;
    pick();
    ASSERT_TRUE(Testing::waitFor([&] { return portal.calls == 1; }));
    loop.advance(std::chrono::minutes(3));
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(outcome.error(), "");
    pick();
    ASSERT_TRUE(Testing::waitFor([&] { return portal.calls == 2; }));
    sampler->cancel();
    portal.leave();
    pick(); // nobody is there, so this one is answered soon
    EXPECT_TRUE(Testing::waitFor([this] { return answers == 2; }));
    EXPECT_EQ(loop.pendingTimers(), 0u);
    sampler.reset();
}

} // namespace Kovrel

#include "PortalColorSamplerTest.moc"
