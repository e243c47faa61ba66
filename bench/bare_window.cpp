// The limit that the player's start, memory and drags are measured against: the least that a Qt
// program can do, a window of the player's size without a frame that follows the pointer.
#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace {

class Bare : public QWidget {
  public:
    Bare() : QWidget(nullptr, Qt::FramelessWindowHint) { setFixedSize(276, 82); }

  protected:
    void mousePressEvent(QMouseEvent* event) override { grip_ = event->position().toPoint(); }
    void mouseMoveEvent(QMouseEvent* event) override {
        move(event->globalPosition().toPoint() - grip_);
    }

  private:
    QPoint grip_;
};

} // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    Bare window;
    window.show();
    return QApplication::exec();
}
