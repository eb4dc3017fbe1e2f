#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTextStream>
#include <QUrl>
#include <QWidget>

namespace {

// Takes files that are dropped on it, and says which.
class DropTarget : public QWidget {
public:
    DropTarget() { setAcceptDrops(true); }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }

    void dropEvent(QDropEvent* event) override
    {
        event->acceptProposedAction();
        for (const QUrl& url : event->mimeData()->urls())
            QTextStream(stdout) << url.toString(QUrl::FullyEncoded) << Qt::endl;
    }
};

} // namespace

// A window in the screen's upper left corner for files that are dragged out of another program.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    DropTarget target;
    target.setWindowFlag(Qt::BypassWindowManagerHint);
    target.setStyleSheet("background: #00ff00");
    target.setGeometry(0, 0, 300, 200);
    target.show();
    return QApplication::exec();
}
