// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Build-time tool: renders one SVG icon to a PNG at its own size and to a second
// PNG at twice that size, so that both normal and high-DPI screens get sharp pixels.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool renderAt(QSvgRenderer& renderer, const QString& out, int scale)
{
    const QSize size = renderer.defaultSize() * scale;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return image.save(out, "PNG");
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: pallo-render-svg icon.svg icon.png icon@2x.png\n");
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid() || renderer.defaultSize().isEmpty()) {
        std::fprintf(stderr, "pallo-render-svg: cannot read %s\n", argv[1]);
        return 1;
    }
    if (!renderAt(renderer, QString::fromLocal8Bit(argv[2]), 1) ||
        !renderAt(renderer, QString::fromLocal8Bit(argv[3]), 2)) {
        std::fprintf(stderr, "pallo-render-svg: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
