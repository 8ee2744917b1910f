// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Checks the board's pictures as a user meets them: every image the board asks for
// exists at 1x and 2x, cursors put their hot spot on the drawn tip, and the picture
// sheet of the whole set is written for a person to look at.

#include <QtTest>

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QStringList>

namespace {

const QStringList& cursorNames()
{
    static const QStringList names{"pencil", "highlight", "delay_erase", "erase",
                                   "move",   "scale",     "scale2",      "rotate"};
    return names;
}

QImage loadImage(const QString& name, bool twice)
{
    return QImage(QStringLiteral(":/images/%1%2.png").arg(name, twice ? "@2x" : ""));
}

QString outputFolder()
{
    const QByteArray dir = qgetenv("PALLO_TEST_OUTPUT");
    return dir.isEmpty() ? QDir::tempPath() : QString::fromLocal8Bit(dir);
}

// Draws every picture of a group at 1x and 2x on a light and on a dark tile, so that
// both the look on the toolbar and the halo of the cursors can be judged.
void drawSheetRow(QPainter& painter, int top, const QString& name)
{
    const QImage small = loadImage(name, false);
    const QImage large = loadImage(name, true);
    painter.fillRect(QRect(0, top, 560, 150), QColor("#ffffff"));
    painter.fillRect(QRect(280, top, 280, 150), QColor("#2b2f36"));
    painter.setPen(QColor("#808ea0"));
    painter.drawText(QRect(8, top + 128, 264, 20), Qt::AlignLeft, name);
    for (int dark = 0; dark < 2; ++dark) {
        const int left = 8 + dark * 280;
        painter.drawImage(QPoint(left, top + 8 + (128 - small.height()) / 2), small);
        painter.drawImage(QPoint(left + 80, top + 8 + (128 - large.height()) / 2), large);
    }
}

} // namespace

class TestIconSet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cursorExistsAtBothScales_data();
    void cursorExistsAtBothScales();
    void cursorHotSpotIsOnTheTip_data();
    void cursorHotSpotIsOnTheTip();
    void scaleCursorsRunAlongOppositeDiagonals();
    void writeCursorSheet();
};

void TestIconSet::initTestCase()
{
    // The pictures are compiled into the board's library; naming its resources
    // here also keeps the linker from dropping the library.
    Q_INIT_RESOURCE(pallo_resources);
    QVERIFY(QFile::exists(":/images/pencil.png"));
}

void TestIconSet::cursorExistsAtBothScales_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("side");
    QTest::newRow("pencil") << "pencil" << 64;
    QTest::newRow("highlight") << "highlight" << 64;
    QTest::newRow("delay_erase") << "delay_erase" << 64;
    QTest::newRow("erase") << "erase" << 40;
    QTest::newRow("move") << "move" << 32;
    QTest::newRow("scale") << "scale" << 32;
    QTest::newRow("scale2") << "scale2" << 32;
    QTest::newRow("rotate") << "rotate" << 32;
}

void TestIconSet::cursorExistsAtBothScales()
{
    QFETCH(QString, name);
    QFETCH(int, side);
    const QImage small = loadImage(name, false);
    const QImage large = loadImage(name, true);
    QVERIFY2(!small.isNull(), qPrintable(name));
    QVERIFY2(!large.isNull(), qPrintable(name + "@2x"));
    QCOMPARE(small.size(), QSize(side, side));
    QCOMPARE(large.size(), QSize(2 * side, 2 * side));
}

void TestIconSet::cursorHotSpotIsOnTheTip_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : cursorNames())
        QTest::newRow(qPrintable(name)) << name;
}

// The board puts every cursor's hot spot on the image centre, so the drawn tip (or
// the centre mark) has to cover the centre, and the picture must not be centred
// around an empty middle by accident.
void TestIconSet::cursorHotSpotIsOnTheTip()
{
    QFETCH(QString, name);
    for (bool twice : {false, true}) {
        const QImage image = loadImage(name, twice).convertToFormat(QImage::Format_ARGB32);
        const QPoint centre(image.width() / 2, image.height() / 2);
        int opaque = 0;
        for (int dy = -1; dy <= 0; ++dy)
            for (int dx = -1; dx <= 0; ++dx)
                if (qAlpha(image.pixel(centre + QPoint(dx, dy))) > 128)
                    ++opaque;
        QVERIFY2(opaque >= 2,
                 qPrintable(
                     QStringLiteral("%1 at %2x: centre not covered").arg(name).arg(twice ? 2 : 1)));
    }
}

void TestIconSet::scaleCursorsRunAlongOppositeDiagonals()
{
    const QImage scale = loadImage("scale", false).convertToFormat(QImage::Format_ARGB32);
    const QImage scale2 = loadImage("scale2", false).convertToFormat(QImage::Format_ARGB32);
    const QPoint topLeft(7, 7);
    const QPoint topRight(24, 7);
    const QPoint bottomLeft(7, 24);
    const QPoint bottomRight(24, 24);
    QVERIFY(qAlpha(scale.pixel(topLeft)) > 200);
    QVERIFY(qAlpha(scale.pixel(bottomRight)) > 200);
    QCOMPARE(qAlpha(scale.pixel(topRight)), 0);
    QCOMPARE(qAlpha(scale.pixel(bottomLeft)), 0);
    QVERIFY(qAlpha(scale2.pixel(topRight)) > 200);
    QVERIFY(qAlpha(scale2.pixel(bottomLeft)) > 200);
    QCOMPARE(qAlpha(scale2.pixel(topLeft)), 0);
    QCOMPARE(qAlpha(scale2.pixel(bottomRight)), 0);
}

void TestIconSet::writeCursorSheet()
{
    const QStringList& names = cursorNames();
    QImage sheet(560, 150 * names.size(), QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < names.size(); ++i)
        drawSheetRow(painter, 150 * i, names.at(i));
    painter.end();
    QDir().mkpath(outputFolder());
    const QString file = outputFolder() + "/cursor-sheet.png";
    QVERIFY(sheet.save(file));
    QVERIFY(QFileInfo(file).size() > 0);
}

QTEST_MAIN(TestIconSet)
#include "test-icon-set.moc"
