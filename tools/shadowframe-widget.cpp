// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/shadowframe-widget.h"

#include "common/event-position.h"
#include "common/ini-store-status.h"
#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "logging/log-categories.h"
#include "ui_shadowframe-widget.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDirIterator>
#include <QEvent>
#include <QFileDialog>
#include <QGraphicsDropShadowEffect>
#include <QMouseEvent>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QUrl>

#include <memory>

namespace {

// The panel keeps its own store, apart from the board's.
std::unique_ptr<QSettings> panelSettings()
{
    const QString name = QCoreApplication::applicationName();
    auto settings =
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, name, name);
    reportIniFormatError(*settings);
    return settings;
}

} // namespace

QString firstPlainFile(const QString& folder)
{
    if (folder.isEmpty())
        return QString();
    QDirIterator walk(folder, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    return walk.hasNext() ? walk.next() : QString();
}

shadowframeWidget::shadowframeWidget(QWidget* parent)
    : QWidget(parent), ui(new Ui::shadowframeWidget), m_errorTimer(new QTimer(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setStyleSheet(scaleStyleSheet(styleSheet(), screenScaleFactor()));

    auto* shadow = new QGraphicsDropShadowEffect(ui->frame_main);
    shadow->setBlurRadius(24);
    shadow->setOffset(0, 3);
    shadow->setColor(QColor(30, 40, 60, 70));
    ui->frame_main->setGraphicsEffect(shadow);

    fillFormats();
    // No editor is listening for keys until the presenter picks one.
    ui->frame_main->setFocus();

    m_errorTimer->setSingleShot(true);
    m_errorTimer->setInterval(1000);
    connect(m_errorTimer, &QTimer::timeout, this, &shadowframeWidget::sl_timeout);
    connect(ui->lineEdit_zoom, &QLineEdit::editingFinished, this,
            &shadowframeWidget::sl_zoomeditfinished);
    connect(ui->lineEdit_timer, &QLineEdit::editingFinished, this,
            &shadowframeWidget::sl_timereditfinished);
    connect(ui->lineEdit_screen, &QLineEdit::editingFinished, this,
            &shadowframeWidget::sl_screeneditfinished);
    connect(ui->lineEdit_dir, &QLineEdit::textChanged, this, &shadowframeWidget::sg_dirchanged);
    for (KeyLineEdit* editor : {ui->lineEdit_zoom, ui->lineEdit_timer, ui->lineEdit_screen})
        connect(editor, &KeyLineEdit::sg_error, this, &shadowframeWidget::sl_error);
    connect(ui->comboBox_format, &QComboBox::currentTextChanged, this,
            &shadowframeWidget::formatchanged);

    adjustSize();
    const QScreen* screen = parent ? parent->screen() : QGuiApplication::primaryScreen();
    QRect place = rect();
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
}

shadowframeWidget::~shadowframeWidget()
{
    // The children die after this body, and a line edit losing focus then still reports
    // editingFinished; nothing of the panel may hear it.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
    delete ui;
}

QStringList shadowframeWidget::formats()
{
    return {" PNG", " JPEG", " JPG", " BMP"};
}

void shadowframeWidget::setFormatText(const QString& text)
{
    const QString wanted = text.simplified();
    for (int i = 0; i < ui->comboBox_format->count(); ++i) {
        if (ui->comboBox_format->itemText(i).simplified().compare(wanted, Qt::CaseInsensitive) ==
            0) {
            ui->comboBox_format->setCurrentIndex(i);
            return;
        }
    }
    qCDebug(lcTools) << "unknown picture format" << text << "- keeping"
                     << ui->comboBox_format->currentText();
}

void shadowframeWidget::setDirectory(const QString& folder)
{
    ui->lineEdit_dir->setText(folder);
}

void shadowframeWidget::setZoomKeyText(const QString& text)
{
    ui->lineEdit_zoom->setKeyText(text);
}

void shadowframeWidget::setTimerKeyText(const QString& text)
{
    ui->lineEdit_timer->setKeyText(text);
}

void shadowframeWidget::setScreenKeyText(const QString& text)
{
    ui->lineEdit_screen->setKeyText(text);
}

void shadowframeWidget::on_Btn_close_clicked()
{
    close();
    emit sg_shortexit();
}

void shadowframeWidget::sl_zoomeditfinished()
{
    emit sg_zoomkeytext(ui->lineEdit_zoom->text());
}

void shadowframeWidget::sl_timereditfinished()
{
    emit sg_timerkeytext(ui->lineEdit_timer->text());
}

void shadowframeWidget::sl_screeneditfinished()
{
    qCDebug(lcTools) << " QString str =ui->lineEdit_screen->text();";
    emit sg_screenkeytext(ui->lineEdit_screen->text());
}

void shadowframeWidget::sl_error(QString errorstring)
{
    qCDebug(lcTools) << errorstring;
    ui->label_error->setText(errorstring);
    m_errorTimer->start();
}

void shadowframeWidget::sl_timeout()
{
    ui->label_error->clear();
}

void shadowframeWidget::on_toolButton_change_clicked()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("ShadowFrameWidget.Text.SelectImageSavePath"), "/home",
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (!folder.isEmpty())
        ui->lineEdit_dir->setText(folder);
}

void shadowframeWidget::on_toolButton_open_clicked()
{
    const QString folder = QString::fromUtf8(panelSettings()->value("cutdirectory").toByteArray());
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        qCDebug(lcTools) << "screenshot folder not found:" << folder;
        return;
    }
    qCDebug(lcTools) << "first file in the screenshot folder:" << firstPlainFile(folder);
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        qCDebug(lcTools) << "could not open the screenshot folder" << folder;
}

void shadowframeWidget::formatchanged(QString str)
{
    str = str.simplified();
    qCDebug(lcTools) << "str = str.simplified" << str;
    panelSettings()->setValue("picformat", str);
}

void shadowframeWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        fillFormats();
    }
    QWidget::changeEvent(event);
}

void shadowframeWidget::fillFormats()
{
    // Refilling must not read as a choice of the user.
    const QSignalBlocker quiet(ui->comboBox_format);
    const QString current = ui->comboBox_format->currentText();
    ui->comboBox_format->clear();
    ui->comboBox_format->addItems(formats());
    if (!current.isEmpty())
        ui->comboBox_format->setCurrentText(current);
}

QPoint shadowframeWidget::frameCentre() const
{
    return mapToGlobal(rect().center());
}

void shadowframeWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        dragOffset = event_position::global(event) - frameCentre();
        dragging = true;
    }
    QWidget::mousePressEvent(event);
}

void shadowframeWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (dragging)
        move(pos() + (event_position::global(event) - dragOffset) - frameCentre());
    QWidget::mouseMoveEvent(event);
}

void shadowframeWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        dragging = false;
    QWidget::mouseReleaseEvent(event);
}
