// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QButtonGroup;

namespace Ui {
class ControlMenu;
}

// Menu of the select button: operate the desktop ("choose") or move strokes ("drag").
class ControlMenu : public QMenu
{
    Q_OBJECT
public:
    explicit ControlMenu(QWidget* parent = nullptr);
    ~ControlMenu() override;

    QButtonGroup* buttonGroup() const { return m_group; }

signals:
    void sg_controlchange(QString name);

public slots:
    void slot_controlchange(int id);
    // Switches to the other entry, as if the user had clicked it.
    void slot_buttonClicked();

private:
    Ui::ControlMenu* ui;
    QButtonGroup* m_group;
};
