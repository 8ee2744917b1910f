// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class QTimer;

namespace Ui {
class shadowframeWidget;
}

// The first plain file found walking folder and its sub-folders; empty when there is
// none or the folder does not exist.
QString firstPlainFile(const QString& folder);

// The small settings panel: hotkeys of the magnifier, the timer and the screenshot
// tool, the screenshot folder and the picture format. It reports new hotkey texts and
// folders by signal; whoever opened it stores and applies them.
class shadowframeWidget : public QWidget
{
    Q_OBJECT
public:
    explicit shadowframeWidget(QWidget* parent = nullptr);
    ~shadowframeWidget() override;

    // The texts as the settings hold them; the format may carry blanks around it.
    void setFormatText(const QString& text);
    void setDirectory(const QString& folder);
    void setZoomKeyText(const QString& text);
    void setTimerKeyText(const QString& text);
    void setScreenKeyText(const QString& text);

    // The formats offered, as the combo box lists them.
    static QStringList formats();

signals:
    void sg_zoomkeytext(QString);
    void sg_timerkeytext(QString);
    void sg_screenkeytext(QString);
    void sg_shortexit();
    void sg_dirchanged(QString);

public slots:
    void on_Btn_close_clicked();
    void sl_zoomeditfinished();
    void sl_timereditfinished();
    void sl_screeneditfinished();
    void sl_error(QString errorstring);
    void sl_timeout();
    void on_toolButton_change_clicked();
    void on_toolButton_open_clicked();
    void formatchanged(QString);

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void fillFormats();
    QPoint frameCentre() const;

    Ui::shadowframeWidget* ui;
    QTimer* m_errorTimer;
    QPoint dragOffset;
    bool dragging = false;
};
