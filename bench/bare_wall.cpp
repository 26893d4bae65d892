// The least that a wall on the screen costs: a window that does nothing but paint 121 fields in new colours
// twenty times a second, as large as those of the demo's wall.
#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace {

constexpr int Fields = 11; // in a row and in a column
constexpr int Edge = 48;   // of a field, pixels

class BareWall : public QWidget {
public:
    BareWall() {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(Fields * Edge, Fields * Edge);
    }

    void NextColours() {
        ++hue;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int field = 0; field < Fields * Fields; ++field)
            painter.fillRect(field % Fields * Edge, field / Fields * Edge, Edge, Edge,
                             QColor::fromHsv((hue + field) % 360, 255, 255));
    }

private:
    int hue = 0;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWall wall;
    QTimer clock;
    clock.setTimerType(Qt::PreciseTimer);
    QObject::connect(&clock, &QTimer::timeout, &wall, [&wall] { wall.NextColours(); });
    clock.start(std::chrono::milliseconds(50));
    wall.show();
    return QApplication::exec();
}
