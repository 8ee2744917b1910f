// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QButtonGroup;
class QLabel;

namespace Ui {
class PopupMenuWdiget;
}

// Menu of the zoom button: which presentation tool the button starts (1 magnifier,
// 2 timer, 3 screenshot). Each entry is an icon beside a caption that light up
// together while the pointer is over the entry.
class PopupMenuWdiget : public QMenu
{
    Q_OBJECT
public:
    explicit PopupMenuWdiget(QWidget* parent = nullptr);
    ~PopupMenuWdiget() override;

    QButtonGroup* buttonGroup() const { return m_group; }

signals:
    void sg_buttonType(int type);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry
    {
        QWidget* button;
        QString iconName;
        QString textName;
        QString icon;
        QString hoverIcon;
    };

    QLabel* addLabel(QWidget* button, const QString& name);
    void applyStyle(const Entry& entry, bool hover);

    Ui::PopupMenuWdiget* ui;
    QButtonGroup* m_group;
    QVector<Entry> m_entries;
};
