// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QButtonGroup;
class QSettings;

namespace Ui {
class FontSizeMenu;
}

// Menu of the text button: large, medium or small text. The choice is remembered
// in the board settings under "font_size".
class FontSizeMenu : public QMenu
{
    Q_OBJECT
public:
    explicit FontSizeMenu(QWidget* parent = nullptr);
    ~FontSizeMenu() override;

    QButtonGroup* buttonGroup() const { return m_group; }
    int sizeType() const { return m_sizeType; }
    // The current text size in points.
    int fontSize() const { return pointsForType(m_sizeType); }

    // 1 large (26), 2 medium (17), 3 small (11); anything else counts as large.
    static int pointsForType(int type);

signals:
    void sg_fontSize(int size);

public slots:
    void slot_fontSize(int type);

private:
    Ui::FontSizeMenu* ui;
    QButtonGroup* m_group;
    QSettings* m_settings;
    int m_sizeType = 1;
};
