// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsTextItem>

class DData;

// Editable text placed on the canvas by the text tool.
class textItemchange : public QGraphicsTextItem
{
    Q_OBJECT

public:
    enum
    {
        Type = UserType + 5
    };

    explicit textItemchange(DData* data, QGraphicsItem* parent = nullptr);
    ~textItemchange() override;

    int type() const override { return Type; }

    // Some text item of the process is being edited.
    static bool isEditing();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    DData* m_data;
    bool m_editing = true;
    static bool s_editing;
};
