// Renders every window into PNG files: vellumo-screenshots FOLDER [--dark]. Not a test; tools/make-screenshots runs it.
#include "support/EveryWindow.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <cstdio>

namespace {

QPalette DarkPalette() {
    QPalette palette(QColor(0x2b, 0x2e, 0x33));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor(0xe8, 0xe8, 0xe8));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x25));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x29, 0x2e));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x8f, 0xd1));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb6, 0xff));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x84, 0x8a));
    return palette;
}

/// Takes pictures of the windows of one program.
class Camera {
  public:
    Camera(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

    void Take(QWidget& window, const QString& name) const {
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        QTest::qWait(50);
        const QString path = folder_ + u'/' + name + suffix_ + QStringLiteral(".png");
        if (!window.grab().save(path)) {
            std::fprintf(stderr, "Can't write %s\n", qPrintable(path));
            std::exit(1);
        }
        std::printf("%s %dx%d\n", qPrintable(path), window.width(), window.height());
    }

  private:
    QString folder_;
    QString suffix_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
#ifndef Q_OS_WIN
    QApplication::setStyle(QStringLiteral("Fusion"));
#endif
    const QStringList arguments = QCoreApplication::arguments();
    const bool dark = arguments.contains(QStringLiteral("--dark"));
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "Usage: vellumo-screenshots FOLDER [--dark]\n");
        return 2;
    }
    if (dark)
        QApplication::setPalette(DarkPalette());
    const Camera camera(QDir(arguments[1]).absolutePath(), dark ? QStringLiteral("-dark") : QString());
    VisitEveryWindow(QStringLiteral(VELLUMO_SOURCE_DIR),
                     [&camera](QWidget& window, const QString& name) { camera.Take(window, name); });
    return 0;
}
