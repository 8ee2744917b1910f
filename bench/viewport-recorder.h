// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QRegion>

class QWidget;

// Takes over the painting of a viewport: the regions Qt asks it to repaint are collected and
// then painted, by the widget's own paint code, into a transparent ARGB image the size of the
// screen, the way the translucent canvas window is painted.
class ViewportRecorder : public QObject
{
public:
    ViewportRecorder(QWidget* viewport, const QSize& size);

    // Lets Qt deliver every pending update, then paints what it asked for.
    void settle();
    // Repaints the whole viewport.
    void repaintAll();

    const QImage& image() const { return m_image; }
    // Area painted by the last settle(), in pixels.
    qint64 lastPaintedArea() const { return m_lastArea; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void paint(const QRegion& region);

    QWidget* m_viewport;
    QImage m_image;
    QRegion m_pending;
    bool m_painting = false;
    qint64 m_lastArea = 0;
};
