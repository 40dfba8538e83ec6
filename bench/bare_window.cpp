// The peer of the main window: one label in a window of the same size. With the argument "tick" it shows the time,
// every second.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTime>
#include <QTimer>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare"));
    auto* central = new QWidget(&window);
    auto* label = new QLabel(QStringLiteral("Some text"), central);
    label->setGeometry(10, 10, 200, 24);
    window.setCentralWidget(central);
    window.resize(780, 600);
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, label, [label] { label->setText(QTime::currentTime().toString()); });
    if (application.arguments().contains(QStringLiteral("tick")))
        timer.start(std::chrono::seconds(1));
    return QApplication::exec();
}
