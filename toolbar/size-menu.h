// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QButtonGroup;
class QSettings;

namespace Ui {
class SizeMenu;
}

// Pen width menu of the size button. The chosen entry id is remembered in the board
// settings under "pen_width" and sent again at start so the canvas draws with it.
class SizeMenu : public QWidget
{
    Q_OBJECT
public:
    explicit SizeMenu(QWidget* parent = nullptr);
    ~SizeMenu() override;

    QButtonGroup* buttonGroup() const { return m_group; }

    // 1 big (6), 2 middle (3), 3 small (1); anything else is the small width.
    static int widthForId(int id);

signals:
    void sg_sizeChange(int size);

public slots:
    void slot_sizeChange(int id);

private:
    Ui::SizeMenu* ui;
    QButtonGroup* m_group;
    QSettings* m_settings;
};
