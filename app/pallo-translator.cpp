// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "logging/log-categories.h"

#include <QSettings>

PalloTranslator::PalloTranslator(const QString& language, QObject* parent) : QTranslator(parent)
{
    qCDebug(lcApp) << "Language" << language << "texts from" << languageFile(language);
    QSettings file(languageFile(language), QSettings::IniFormat);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 always reads INI files as UTF-8.
    file.setIniCodec("UTF-8");
#endif
    const QStringList keys = file.allKeys();
    for (const QString& key : keys) {
        texts.insert(key, file.value(key).toString());
    }
}

QString PalloTranslator::languageFile(const QString& language)
{
    return language == QLatin1String("english") ? QStringLiteral(":/language/en-US.ini")
                                                : QStringLiteral(":/language/zh-cn.ini");
}

QString PalloTranslator::translate(const char* context, const char* sourceText,
                                   const char* disambiguation, int n) const
{
    const auto it = texts.constFind(QString::fromLatin1(sourceText));
    if (it != texts.constEnd()) {
        return *it;
    }
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

bool PalloTranslator::isEmpty() const
{
    return texts.isEmpty();
}
