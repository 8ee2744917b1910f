// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QButtonGroup;

namespace Ui {
class PenMenu;
}

// Menu of the pen button: brush, highlighter or delayed-erase pen.
class PenMenu : public QMenu
{
    Q_OBJECT
public:
    explicit PenMenu(QWidget* parent = nullptr);
    ~PenMenu() override;

    QButtonGroup* buttonGroup() const { return m_group; }

    // Pen kind of an entry id (1 to 3), empty for any other id.
    static QString penName(int id);

signals:
    void sg_penchange(QString name);

public slots:
    void slot_penchange(int id);
    // Steps to the next entry, as if the user had clicked it.
    void slot_buttonClicked();

private:
    Ui::PenMenu* ui;
    QButtonGroup* m_group;
};
