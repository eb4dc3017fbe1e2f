#pragma once

#include "livetext/layer/LiveTextLayer.h"
#include "platform/Scope.h"
#include "ui/AppWindow.h"

#include <QImage>

namespace Kovrel {

// A picture to be looked at as large as there is room; its text can be selected. Escape, the space bar and Ctrl+W close
// it. Main thread.
class PreviewWindow : public AppWindow {
    Q_OBJECT

public:
    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        LiveTextLayer::Doors doors;
    };

    PreviewWindow(QImage picture, const QString& title, Services services);

    const QImage& picture() const { return m_picture; }

    void setReading(const OCRResult& text, const std::vector<QRCode>& codes);
    // Comes to the front.
    void present();

Q_SIGNALS:
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QRectF place() const;
    QSize usualSize() const;
    QCoro::Task<> sharpen(QSize pixels);

    QImage m_picture;
    QImage m_shown; // at the size in which it is shown
    QSize m_wanted; // the size in which it is made
    LiveTextLayer* m_text;
    Scope m_scope;
};

} // namespace Kovrel
