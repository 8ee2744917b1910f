// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

class QScreen;

// A short message over everything else, centred on a screen, that goes away by itself
// after a few seconds or at a click. It deletes itself when it closes.
class NoticeLabel : public QLabel
{
    Q_OBJECT

public:
    static constexpr int kShownMs = 6000;

    // Shows text on screen (the primary screen when null) and returns the notice.
    static NoticeLabel* showOn(QScreen* screen, const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    explicit NoticeLabel(const QString& text);
};
