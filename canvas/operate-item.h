// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QPointer>

class CommonItem;

// The one handle frame of the process. It is attached to at most one shape at a time and
// drawn around it.
class OperateItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    enum
    {
        Type = UserType + 4
    };

    // The instance, created on first use. It lives in the scene of the last shape it was
    // attached to, which owns it.
    static OperateItem* instance();
    // The instance if it has been created and still exists; no instance is created.
    static OperateItem* existing();

    int type() const override { return Type; }

    void attachTo(CommonItem* target);
    void detach();
    CommonItem* target() const;
    bool isAttachedTo(const QGraphicsItem* item) const;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    OperateItem();

    QPointer<CommonItem> m_target;
    static QPointer<OperateItem> s_instance;
};
