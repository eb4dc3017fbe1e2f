#include "historywindow/HistoryPreview.h"

#include "ui/Label.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>
#include <QTimer>

namespace Kovrel {

namespace {

// Who goes through many captures does not wait for their text.
constexpr std::chrono::milliseconds rest{300};

} // namespace

HistoryPreview::HistoryPreview(Services services)
    : m_picture(new PreviewPicture(services.preferences, std::move(services.doors))),
      m_readText(std::move(services.readText)),
      m_rest(new QTimer(this)),
      m_pictures(services.loop, services.workers, std::move(services.read),
                 [this](QUuid) { m_picture->setPicture(m_pictures.picture(m_id)); })
{
    m_rest->setSingleShot(true);
    m_rest->setInterval(rest);
    connect(m_rest, &QTimer::timeout, this, &HistoryPreview::wantText);
    m_title = new Label(TextStyle::emphasis);
    m_title->setTextFormat(Qt::PlainText);
    m_rows = new QGridLayout;
    m_rows->setHorizontalSpacing(Spacing::medium);
    m_rows->setVerticalSpacing(Spacing::small);
    m_rows->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::medium);
    layout->addWidget(m_picture);
    layout->addWidget(m_title);
    layout->addLayout(m_rows);
    layout->addStretch(1);
    connect(m_picture, &PreviewPicture::roomChanged, this, &HistoryPreview::wantPicture);
}

void HistoryPreview::show(QUuid id, const Facts& facts, std::vector<Rect> marks)
{
    if (std::exchange(m_id, id) != id) {
        m_picture->clearText();
        m_rest->start();
    }
    setFacts(facts);
    m_picture->setVisible(!id.isNull());
    m_picture->setShape(facts.shape);
    m_picture->setMarks(std::move(marks));
    wantPicture();
}

void HistoryPreview::forget(QUuid id)
{
    m_pictures.forget(id);
    wantPicture();
    if (id == m_id) {
        m_picture->clearText();
        m_rest->start();
    }
}

void HistoryPreview::wantText()
{
    if (m_id.isNull())
        return;
    m_readText(m_id, m_lifeline.guard([this, id = m_id](const OCROutcome& text) {
        if (text && id == m_id)
            m_picture->setText(*text);
    }));
}

// Until the picture is there, the one before stays: a bare ground in between would flicker.
void HistoryPreview::wantPicture()
{
    m_pictures.setBounds(m_picture->room());
    m_pictures.want(m_id.isNull() ? std::vector<QUuid>() : std::vector{m_id});
    if (m_id.isNull() || !m_pictures.isExpected(m_id))
        m_picture->setPicture(m_pictures.picture(m_id));
}

void HistoryPreview::setFacts(const Facts& facts)
{
    m_title->setText(facts.title);
    int row = 0;
    for (const auto& [name, value] : facts.rows)
        if (!value.isEmpty())
            setRow(row++, name, value);
    for (; m_rows->itemAtPosition(row, 0); ++row)
        setRow(row, {}, {});
}

void HistoryPreview::setRow(int row, const QString& name, const QString& value)
{
    if (!m_rows->itemAtPosition(row, 0)) {
        auto* text = new Label(TextStyle::body);
        text->setTextFormat(Qt::PlainText);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_rows->addWidget(new Label(TextStyle::body, Label::Role::secondary), row, 0, Qt::AlignTop);
        m_rows->addWidget(text, row, 1, Qt::AlignTop);
    }
    const auto cell = [&](int column) { return static_cast<Label*>(m_rows->itemAtPosition(row, column)->widget()); };
    cell(0)->setText(name);
    cell(1)->setText(value);
    cell(0)->setVisible(!name.isEmpty());
    cell(1)->setVisible(!name.isEmpty());
}

} // namespace Kovrel
