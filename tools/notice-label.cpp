// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/notice-label.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

NoticeLabel::NoticeLabel(const QString& text) : QLabel(text)
{
    setObjectName(QStringLiteral("noticeLabel"));
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWordWrap(true);
    setMargin(16);
    setStyleSheet(QStringLiteral("QLabel#noticeLabel { background: #b3261e; color: white; "
                                 "font-size: 15px; border-radius: 6px; }"));
    QTimer::singleShot(kShownMs, this, &QWidget::close);
}

NoticeLabel* NoticeLabel::showOn(QScreen* screen, const QString& text)
{
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    auto* notice = new NoticeLabel(text);
    const QRect area = screen->availableGeometry();
    notice->setMaximumWidth(area.width() / 2);
    notice->adjustSize();
    QRect place = notice->rect();
    place.moveCenter(area.center());
    notice->move(place.topLeft());
    notice->show();
    return notice;
}

void NoticeLabel::mousePressEvent(QMouseEvent*)
{
    close();
}
