// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QTranslator>

// Answers every tr()/translate() look-up from one of the language files, by key
// alone: the same key reads the same in every context.
class PalloTranslator : public QTranslator
{
    Q_OBJECT

public:
    // "english" selects the English file; anything else, empty included, Chinese.
    explicit PalloTranslator(const QString& language, QObject* parent = nullptr);

    QString translate(const char* context, const char* sourceText,
                      const char* disambiguation = nullptr, int n = -1) const override;
    bool isEmpty() const override;

    // The resource path of the language file chosen for language.
    static QString languageFile(const QString& language);

private:
    QHash<QString, QString> texts;
};
