// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Checks the board's pictures as a user meets them: every image the board asks for
// exists at 1x and 2x, cursors put their hot spot on the drawn tip, and the picture
// sheet of the whole set is written for a person to look at.

#include "tests/test-output.h"

#include <QtTest>

#include <QCheckBox>
#include <QCursor>
#include <QDirIterator>
#include <QFont>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QStringList>
#include <QToolButton>

namespace {

const QColor accent("#1d92fd");

const QStringList& cursorNames()
{
    static const QStringList names{"pencil", "highlight", "delay_erase", "erase",
                                   "move",   "scale",     "scale2",      "rotate"};
    return names;
}

// Resting picture and the picture shown under the pointer, pressed or chosen, for
// every button of the toolbar, its folded button and its menus.
const QList<QPair<QString, QString>>& statePairs()
{
    static const QList<QPair<QString, QString>> pairs{
        {"pen", "pen_hover"},
        {"pen_highlighter", "pen_highlighter_hover"},
        {"pen_delay_erase", "pen_delay_erase_selected"},
        {"choose_menu", "choose_hover_menu"},
        {"drag_menu", "drag_hover_menu"},
        {"tool_fangdajing_default_d", "tool_fangdajing_press_p"},
        {"tool_time_default_d", "tool_time_press_p"},
        {"tool_jieping_default_d", "tool_jieping_press_p"},
        {"tool_cuxi_mini", "tool_cuxi_press"},
        {"tool_cuxi_mid", "tool_cuxi_press"},
        {"tool_cuxi_big", "tool_cuxi_press"},
        {"tool_folder", "tool_folder_hover"},
        {"tool_folder_up", "tool_folder_up_hover"},
        {"pen_menu", "pen_menu_hover"},
        {"pen_highlighter_menu", "pen_highlighter_menu_hover"},
        {"rect", "rect_hover"},
        {"line", "line_hover"},
        {"ellipse", "ellipse_hover"},
        {"text_folder", "text_folder_hover"},
        {"choose", "choose_hover"},
        {"tool_drag", "tool_drag_hover"},
        {"tool_arrow_default", "tool_arrow_hover"},
        {"tool_erase_default", "tool_erase_hover"},
        {"tool_menu_magnifier", "tool_menu_magnifier_hover"},
        {"tool_menu_timer", "tool_menu_timer_hover"},
        {"tool_menu_cut", "tool_menu_cut_hover"},
        {"text", "text_hover"},
        {"undo", "undo_hover"},
        {"redo", "redo_hover"},
        {"clear", "clear_hover"},
        {"tool_rotate", "tool_rotate_hover"},
        {"tool_close", "tool_close_hover"},
        {"delay_erase_menu", "delay_erase_menu_hover"},
        {"size_small", "size_small_hover"},
        {"size_mid", "size_mid_hover"},
        {"size_big", "size_big_hover"},
        {"color_black", "color_black_checked"},
        {"color_blue", "color_blue_checked"},
        {"color_red", "color_red_checked"},
        {"color_white", "color_white_checked"},
        {"color_green", "color_green_checked"},
        {"color_yellow", "color_yellow_checked"},
        {"float_light", "float_light_hover"},
        {"float_light", "float_light_checked"},
        {"float_close", "float_close_hover"},
        {"float_done", "float_done_hover"},
        {"plus", "plus_hover"},
        {"minus", "minus_hover"},
        {"shoclose", "shoclose_hover"},
    };
    return pairs;
}

// Pixels as stored: a file named "@2x" would otherwise be read as a high-DPI picture
// and drawn at half its size.
QImage loadImage(const QString& name, bool twice)
{
    QImage image = QImage(QStringLiteral(":/images/%1%2.png").arg(name, twice ? "@2x" : ""))
                       .convertToFormat(QImage::Format_ARGB32);
    image.setDevicePixelRatio(1.0);
    return image;
}

QString readStyleSheet()
{
    QFile file(":/images/qss.css");
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

// The same widening of "Npx;" values that the board applies on a dense screen.
QString scaledStyleSheet(QString text, double factor)
{
    const QRegularExpression number("(\\d+)px;");
    int at = 0;
    QRegularExpressionMatch match;
    while ((match = number.match(text, at)).hasMatch()) {
        const QString bigger = QString::number(match.captured(1).toInt() * factor, 'g', 6) + "px;";
        at = match.capturedStart();
        text.replace(at, match.capturedLength(), bigger);
        at += bigger.size();
    }
    return text;
}

bool isAccent(QRgb pixel)
{
    if (qAlpha(pixel) < 200)
        return false;
    const QColor colour = QColor::fromRgba(pixel);
    return qAbs(colour.hslHue() - accent.hslHue()) <= 10 && colour.hsvSaturation() > 150 &&
           colour.value() > 150;
}

// Anything bluish and saturated, even faint or blended into the edge of a stroke.
bool isAccentTinted(QRgb pixel)
{
    if (qAlpha(pixel) < 60)
        return false;
    const QColor colour = QColor::fromRgba(pixel);
    return qAbs(colour.hslHue() - accent.hslHue()) <= 20 && colour.hsvSaturation() > 100;
}

int countPixels(const QImage& image, bool (*test)(QRgb))
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (test(image.pixel(x, y)))
                ++count;
    return count;
}

// Compares what a widget shows with a picture at the spot where it should appear:
// every fully opaque pixel of the picture must be on screen with the same colour.
int mismatches(const QImage& shown, const QImage& picture, const QPoint& at)
{
    int wrong = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb want = picture.pixel(x, y);
            if (qAlpha(want) != 255)
                continue;
            const QRgb got = shown.pixel(at + QPoint(x, y));
            if (qAbs(qRed(got) - qRed(want)) > 2 || qAbs(qGreen(got) - qGreen(want)) > 2 ||
                qAbs(qBlue(got) - qBlue(want)) > 2)
                ++wrong;
        }
    }
    return wrong;
}

QStringList parseWarnings;

void catchParseWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtWarningMsg && message.contains("Could not parse"))
        parseWarnings << message;
}

struct SheetSection
{
    QString title;
    QStringList names;
    bool dark;
};

// One cell per picture: the 2x picture, the 1x picture beside it, and the name.
QImage drawSheet(const QList<SheetSection>& sections)
{
    const int columns = 8;
    const int cellWidth = 200;
    const int cellHeight = 170;
    const int titleHeight = 36;
    int height = 0;
    for (const SheetSection& section : sections)
        height += titleHeight + cellHeight * ((section.names.size() + columns - 1) / columns);
    QImage sheet(columns * cellWidth, height, QImage::Format_ARGB32);
    sheet.fill(QColor("#f3f5f8"));
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(12);
    int top = 0;
    for (const SheetSection& section : sections) {
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(QColor("#3c4350"));
        painter.drawText(QRect(12, top, sheet.width() - 24, titleHeight), Qt::AlignVCenter,
                         section.title);
        top += titleHeight;
        font.setBold(false);
        painter.setFont(font);
        for (int i = 0; i < section.names.size(); ++i) {
            const QRect cell((i % columns) * cellWidth + 6, top + (i / columns) * cellHeight + 6,
                             cellWidth - 12, cellHeight - 12);
            painter.fillRect(cell, section.dark ? QColor("#2b2f36") : QColor("#ffffff"));
            const QImage small = loadImage(section.names.at(i), false);
            const QImage large = loadImage(section.names.at(i), true);
            const int middle = cell.top() + (cell.height() - 22) / 2;
            painter.drawImage(QPoint(cell.left() + 8, middle - large.height() / 2), large);
            painter.drawImage(QPoint(cell.right() - 8 - small.width(), middle - small.height() / 2),
                              small);
            painter.setPen(section.dark ? QColor("#c5cad3") : QColor("#808ea0"));
            painter.drawText(QRect(cell.left() + 6, cell.bottom() - 22, cell.width() - 12, 20),
                             Qt::AlignLeft | Qt::AlignVCenter, section.names.at(i));
        }
        top += cellHeight * ((section.names.size() + columns - 1) / columns);
    }
    return sheet;
}

} // namespace

class TestIconSet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void boardImageExists_data();
    void boardImageExists();
    void everyPictureHasATwiceAsLargeTwin();
    void singularPrefixNamesTheSamePicture_data();
    void singularPrefixNamesTheSamePicture();
    void cursorExistsAtBothScales_data();
    void cursorExistsAtBothScales();
    void cursorHotSpotIsOnTheTip_data();
    void cursorHotSpotIsOnTheTip();
    void scaleCursorsRunAlongOppositeDiagonals();
    void buttonPicturesSitOnTheGrid_data();
    void buttonPicturesSitOnTheGrid();
    void activePictureIsAccentAndRestingIsNot_data();
    void activePictureIsAccentAndRestingIsNot();
    void styleSheetNamesOnlyExistingPictures();
    void styleSheetParses_data();
    void styleSheetParses();
    void toolButtonShowsItsPictures_data();
    void toolButtonShowsItsPictures();
    void colourBoxIsARoundSwatch_data();
    void colourBoxIsARoundSwatch();
    void floatingButtonShowsItsPictures_data();
    void floatingButtonShowsItsPictures();
    void writeContactSheet();
    void cleanup();
};

void TestIconSet::initTestCase()
{
    // The pictures are compiled into the board's library; naming its resources
    // here also keeps the linker from dropping the library.
    Q_INIT_RESOURCE(pallo_resources);
    QVERIFY(QFile::exists(":/images/pencil.png"));
    // Qt 6 puts a new window under the pointer into its hover state: the pictures
    // checked here are the ones shown without the pointer over them.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight() - QPoint(10, 10));
}

void TestIconSet::cleanup()
{
    qApp->setStyleSheet(QString());
    qInstallMessageHandler(nullptr);
    parseWarnings.clear();
}

void TestIconSet::boardImageExists_data()
{
    QTest::addColumn<QString>("name");
    // Every picture the canvas, the handles, the toolbar and its menus ask for by name.
    const QStringList names{
        "pencil",
        "highlight",
        "delay_erase",
        "erase",
        "move",
        "scale",
        "scale2",
        "rotate",
        "pen",
        "pen_hover",
        "pen_highlighter",
        "pen_highlighter_hover",
        "pen_delay_erase",
        "pen_delay_erase_selected",
        "choose_menu",
        "choose_hover_menu",
        "drag_menu",
        "drag_hover_menu",
        "tool_fangdajing_default_d",
        "tool_fangdajing_press_p",
        "tool_time_default_d",
        "tool_time_press_p",
        "tool_jieping_default_d",
        "tool_jieping_press_p",
        "tool_cuxi_mini",
        "tool_cuxi_mid",
        "tool_cuxi_big",
        "tool_cuxi_press",
        "tool_folder",
        "tool_folder_hover",
        "tool_folder_up",
        "tool_folder_up_hover",
        "pen_menu",
        "pen_menu_hover",
        "pen_highlighter_menu",
        "pen_highlighter_menu_hover",
        "rect",
        "rect_hover",
        "line",
        "line_hover",
        "ellipse",
        "ellipse_hover",
        "text_folder",
        "text_folder_hover",
        "choose",
        "choose_hover",
        "tool_drag",
        "tool_drag_hover",
        "tool_arrow_default",
        "tool_arrow_hover",
        "tool_erase_default",
        "tool_erase_hover",
        "tool_menu_magnifier",
        "tool_menu_magnifier_hover",
        "tool_menu_timer",
        "tool_menu_timer_hover",
        "tool_menu_cut",
        "tool_menu_cut_hover",
    };
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void TestIconSet::boardImageExists()
{
    QFETCH(QString, name);
    const QImage small = loadImage(name, false);
    const QImage large = loadImage(name, true);
    QVERIFY2(!small.isNull(), qPrintable(name));
    QVERIFY2(!large.isNull(), qPrintable(name + "@2x"));
    QCOMPARE(large.size(), small.size() * 2);
    QVERIFY2(countPixels(small, [](QRgb p) { return qAlpha(p) == 255; }) > 10,
             qPrintable(name + " is empty"));
}

void TestIconSet::everyPictureHasATwiceAsLargeTwin()
{
    int checked = 0;
    QDirIterator pictures(":/images", {"*.png"});
    while (pictures.hasNext()) {
        const QString path = pictures.next();
        if (path.endsWith("@2x.png"))
            continue;
        const QString twin = path.chopped(4) + "@2x.png";
        const QImage small(path);
        const QImage large(twin);
        QVERIFY2(!large.isNull(), qPrintable(twin));
        QCOMPARE(large.size(), small.size() * 2);
        ++checked;
    }
    QVERIFY(checked >= statePairs().size());
}

void TestIconSet::singularPrefixNamesTheSamePicture_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"plus", "plus_hover", "minus", "minus_hover", "shoclose",
                             "shoclose_hover", "plus@2x", "minus@2x", "shoclose@2x"})
        QTest::newRow(name) << QString(name);
}

// The timer's digit buttons and the settings panel ask for ":/image/NAME.png".
void TestIconSet::singularPrefixNamesTheSamePicture()
{
    QFETCH(QString, name);
    const QImage singular(":/image/" + name + ".png");
    QVERIFY2(!singular.isNull(), qPrintable(name));
    QCOMPARE(singular, QImage(":/images/" + name + ".png"));
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
// the centre mark) has to cover the centre.
void TestIconSet::cursorHotSpotIsOnTheTip()
{
    QFETCH(QString, name);
    for (bool twice : {false, true}) {
        const QImage image = loadImage(name, twice);
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
    const QImage scale = loadImage("scale", false);
    const QImage scale2 = loadImage("scale2", false);
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

void TestIconSet::buttonPicturesSitOnTheGrid_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    for (const auto& pair : statePairs()) {
        QSize size(32, 32);
        if (pair.first.startsWith("size_"))
            size = QSize(56, 28);
        else if (pair.first.startsWith("color_"))
            size = QSize(20, 20);
        else if (pair.first.startsWith("float_"))
            size = QSize(44, 44);
        QTest::newRow(qPrintable(pair.first)) << pair.first << size;
        QTest::newRow(qPrintable(pair.second)) << pair.second << size;
    }
}

void TestIconSet::buttonPicturesSitOnTheGrid()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(loadImage(name, false).size(), size);
    QCOMPARE(loadImage(name, true).size(), size * 2);
}

void TestIconSet::activePictureIsAccentAndRestingIsNot_data()
{
    QTest::addColumn<QString>("resting");
    QTest::addColumn<QString>("active");
    for (const auto& pair : statePairs())
        QTest::newRow(qPrintable(pair.second)) << pair.first << pair.second;
}

void TestIconSet::activePictureIsAccentAndRestingIsNot()
{
    QFETCH(QString, resting);
    QFETCH(QString, active);
    for (bool twice : {false, true}) {
        const QImage rest = loadImage(resting, twice);
        const QImage lit = loadImage(active, twice);
        QVERIFY(rest != lit);
        QVERIFY2(countPixels(lit, isAccent) >= (twice ? 40 : 10), qPrintable(active));
        QVERIFY2(countPixels(rest, isAccentTinted) == 0, qPrintable(resting));
    }
}

void TestIconSet::styleSheetNamesOnlyExistingPictures()
{
    const QString sheet = readStyleSheet();
    QVERIFY(!sheet.isEmpty());
    QRegularExpression url("url\\((:/[^)]+)\\)");
    int found = 0;
    auto match = url.globalMatch(sheet);
    while (match.hasNext()) {
        const QString path = match.next().captured(1);
        QVERIFY2(!QImage(path).isNull(), qPrintable(path));
        ++found;
    }
    QVERIFY(found > 40);
}

void TestIconSet::styleSheetParses_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("96 dpi") << 1.0;
    QTest::newRow("120 dpi") << 1.25;
    QTest::newRow("144 dpi") << 1.5;
}

void TestIconSet::styleSheetParses()
{
    QFETCH(double, factor);
    const QString sheet = scaledStyleSheet(readStyleSheet(), factor);
    qInstallMessageHandler(catchParseWarnings);
    qApp->setStyleSheet(sheet);
    QToolButton button;
    button.setObjectName("toolButton_rect");
    button.setStyleSheet(sheet);
    button.ensurePolished();
    button.grab();
    qInstallMessageHandler(nullptr);
    QVERIFY2(parseWarnings.isEmpty(), qPrintable(parseWarnings.join('\n')));
}

void TestIconSet::toolButtonShowsItsPictures_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("resting");
    QTest::addColumn<QString>("active");
    QTest::addColumn<bool>("checkable");
    QTest::newRow("select") << "toolButton_choose"
                            << "choose_menu"
                            << "choose_hover_menu" << true;
    QTest::newRow("pen") << "toolButton_pen"
                         << "pen"
                         << "pen_hover" << true;
    QTest::newRow("rect") << "toolButton_rect"
                          << "rect"
                          << "rect_hover" << true;
    QTest::newRow("line") << "toolButton_line"
                          << "line"
                          << "line_hover" << true;
    QTest::newRow("ellipse") << "toolButton_ellipse"
                             << "ellipse"
                             << "ellipse_hover" << true;
    QTest::newRow("arrow") << "toolButton_arrow"
                           << "tool_arrow_default"
                           << "tool_arrow_hover" << true;
    QTest::newRow("text") << "toolButton_text"
                          << "text"
                          << "text_hover" << true;
    QTest::newRow("eraser") << "toolButton_erase"
                            << "tool_erase_default"
                            << "tool_erase_hover" << true;
    QTest::newRow("size") << "toolButton_size"
                          << "tool_cuxi_mid"
                          << "tool_cuxi_press" << false;
    QTest::newRow("undo") << "toolButton_undo"
                          << "undo"
                          << "undo_hover" << false;
    QTest::newRow("redo") << "toolButton_redo"
                          << "redo"
                          << "redo_hover" << false;
    QTest::newRow("clear") << "toolButton_clear"
                           << "clear"
                           << "clear_hover" << false;
    QTest::newRow("tools") << "toolButton_zoom"
                           << "tool_fangdajing_default_d"
                           << "tool_fangdajing_press_p" << false;
    QTest::newRow("rotate") << "toolButton_rotate"
                            << "tool_rotate"
                            << "tool_rotate_hover" << false;
    QTest::newRow("close") << "toolButton_close"
                           << "tool_close"
                           << "tool_close_hover" << false;
    QTest::newRow("fold") << "toolButton_folder"
                          << "tool_folder"
                          << "tool_folder_hover" << false;
    QTest::newRow("menu pen") << "toolButton_brush"
                              << "pen_menu"
                              << "pen_menu_hover" << true;
    QTest::newRow("menu highlighter") << "toolButton_highlighter"
                                      << "pen_highlighter_menu"
                                      << "pen_highlighter_menu_hover" << true;
    QTest::newRow("menu vanishing pen") << "toolButton_delay_erase"
                                        << "delay_erase_menu"
                                        << "delay_erase_menu_hover" << true;
    QTest::newRow("menu select") << "toolButton_C_choose"
                                 << "choose"
                                 << "choose_hover" << true;
    QTest::newRow("menu transform") << "toolButton_C_drag"
                                    << "tool_drag"
                                    << "tool_drag_hover" << true;
}

// A button styled only by the application stylesheet shows its resting picture at
// 1:1 inside its margin, its caption stays invisible, and pressing (or checking)
// it shows the accent picture.
void TestIconSet::toolButtonShowsItsPictures()
{
    QFETCH(QString, objectName);
    QFETCH(QString, resting);
    QFETCH(QString, active);
    QFETCH(bool, checkable);
    qApp->setStyleSheet(readStyleSheet());
    QWidget window;
    window.setStyleSheet("QWidget#window { background: #ffffff; }");
    window.setObjectName("window");
    auto* layout = new QHBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* button = new QToolButton(&window);
    button->setObjectName(objectName);
    button->setText("brush");
    button->setCheckable(checkable);
    if (objectName == "toolButton_pen" || objectName == "toolButton_choose")
        button->setPopupMode(QToolButton::MenuButtonPopup);
    layout->addWidget(button);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const bool toolbar = !objectName.contains("_brush") && !objectName.contains("_highlighter") &&
                         !objectName.contains("_delay_erase") && !objectName.contains("_C_");
    const int margin = toolbar ? 4 : 0;
    QCOMPARE(button->size(), QSize(32 + 2 * margin, 32 + 2 * margin));
    QImage shown = window.grab(button->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(mismatches(shown, loadImage(resting, false), QPoint(margin, margin)), 0);
    QCOMPARE(countPixels(shown, isAccentTinted), 0);

    if (checkable)
        button->setChecked(true);
    else
        button->setDown(true);
    shown = window.grab(button->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(mismatches(shown, loadImage(active, false), QPoint(margin, margin)), 0);
    QVERIFY(countPixels(shown, isAccent) > 10);
}

void TestIconSet::colourBoxIsARoundSwatch_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("colour");
    QTest::newRow("black") << "black"
                           << "#000000";
    QTest::newRow("blue") << "blue"
                          << "#0000ff";
    QTest::newRow("red") << "red"
                         << "#ff0000";
    QTest::newRow("white") << "white"
                           << "#ffffff";
    QTest::newRow("green") << "green"
                           << "#4df013";
    QTest::newRow("yellow") << "yellow"
                            << "#fff11d";
}

// The box shows a dot of its colour and nothing of its caption; the chosen box gets
// an accent ring around the dot; the white dot keeps a grey edge on a white toolbar.
void TestIconSet::colourBoxIsARoundSwatch()
{
    QFETCH(QString, name);
    QFETCH(QString, colour);
    qApp->setStyleSheet(readStyleSheet());
    QWidget window;
    window.setObjectName("window");
    window.setStyleSheet("QWidget#window { background: #ffffff; }");
    auto* layout = new QHBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* box = new QCheckBox(colour, &window);
    box->setObjectName("checkBox_" + name);
    layout->addWidget(box);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QCOMPARE(box->size(), QSize(20, 20));
    QImage shown = window.grab(box->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(QColor(shown.pixel(10, 10)), QColor(colour));
    QCOMPARE(QColor(shown.pixel(1, 10)), QColor("#ffffff"));
    QCOMPARE(countPixels(shown, isAccentTinted), 0);
    QCOMPARE(mismatches(shown, loadImage("color_" + name, false), QPoint(0, 0)), 0);
    if (name == "white") {
        const QColor edge(shown.pixel(10, 3));
        QVERIFY2(edge.lightness() < 230, qPrintable(edge.name()));
    }

    box->setChecked(true);
    shown = window.grab(box->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(QColor(shown.pixel(10, 10)), QColor(colour));
    QVERIFY(isAccent(shown.pixel(1, 10)));
    QVERIFY(isAccent(shown.pixel(10, 1)));
    QCOMPARE(mismatches(shown, loadImage("color_" + name + "_checked", false), QPoint(0, 0)), 0);
}

void TestIconSet::floatingButtonShowsItsPictures_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("resting");
    QTest::addColumn<QString>("active");
    QTest::addColumn<bool>("checkable");
    QTest::newRow("magnifier light") << "pushButton_zoom_turnoff"
                                     << "float_light"
                                     << "float_light_checked" << true;
    QTest::newRow("magnifier close") << "pushButton_zoom_close"
                                     << "float_close"
                                     << "float_close_hover" << false;
    QTest::newRow("screenshot save") << "pushButton_screenshot"
                                     << "float_done"
                                     << "float_done_hover" << false;
    QTest::newRow("screenshot close") << "pushButton_screenshot_close"
                                      << "float_close"
                                      << "float_close_hover" << false;
}

// The magnifier and the screenshot frame place their 44 px buttons themselves; the
// stylesheet gives them a round picture at 1:1, and the light switch shows when the
// surroundings are dark.
void TestIconSet::floatingButtonShowsItsPictures()
{
    QFETCH(QString, objectName);
    QFETCH(QString, resting);
    QFETCH(QString, active);
    QFETCH(bool, checkable);
    qApp->setStyleSheet(readStyleSheet());
    QWidget window;
    window.setObjectName("window");
    window.setStyleSheet("QWidget#window { background: #808080; }");
    window.resize(100, 100);
    auto* button = new QPushButton(&window);
    button->setObjectName(objectName);
    button->setCheckable(checkable);
    button->setGeometry(20, 20, 44, 44);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QImage shown = window.grab(button->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(mismatches(shown, loadImage(resting, false), QPoint(0, 0)), 0);
    QCOMPARE(QColor(shown.pixel(0, 0)), QColor("#808080"));
    QCOMPARE(countPixels(shown, isAccentTinted), 0);

    if (checkable)
        button->setChecked(true);
    else
        button->setDown(true);
    shown = window.grab(button->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(mismatches(shown, loadImage(active, false), QPoint(0, 0)), 0);
    QVERIFY(countPixels(shown, isAccent) > 10);
}

void TestIconSet::writeContactSheet()
{
    QStringList resting;
    QStringList active;
    QStringList swatches;
    for (const auto& pair : statePairs()) {
        QStringList& list = pair.first.startsWith("color_") ? swatches : resting;
        if (!list.contains(pair.first))
            list << pair.first;
        if (pair.first.startsWith("color_"))
            swatches << pair.first + "_hover" << pair.second;
        else if (!active.contains(pair.second))
            active << pair.second;
    }
    const QList<SheetSection> sections{
        {"Cursors on a light and on a dark desktop", cursorNames(), false},
        {"", cursorNames(), true},
        {"Toolbar and menus at rest", resting, false},
        {"Under the pointer, pressed or chosen", active, false},
        {"Colour boxes: at rest, under the pointer, chosen", swatches, false},
    };
    const QImage sheet = drawSheet(sections);
    QVERIFY(keepPicture(sheet, "icon-sheet"));
    QCOMPARE(QImage(testOutputFolder() + "/icon-sheet.png").size(), sheet.size());
}

QTEST_MAIN(TestIconSet)
#include "test-icon-set.moc"
