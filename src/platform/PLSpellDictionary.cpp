// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellDictionary.h"

#include <QLocale>

#include <enchant.h>

namespace {

struct BrokerDeleter
{
    void operator()(EnchantBroker *broker) const { enchant_broker_free(broker); }
};

class EnchantDictionary final : public PLSpellDictionary
{
public:
    explicit EnchantDictionary(const QString &localeIdentifier)
        : m_broker(enchant_broker_init())
        , m_dict(enchant_broker_request_dict(m_broker.get(), localeIdentifier.toUtf8().constData()))
    {
    }

    ~EnchantDictionary() override
    {
        if (m_dict)
            enchant_broker_free_dict(m_broker.get(), m_dict);
    }

    EnchantDictionary(const EnchantDictionary &) = delete;
    EnchantDictionary &operator=(const EnchantDictionary &) = delete;

    /// Enchant falls back from a region to its language, whatever region that was made for.
    bool isFor(const QString &localeIdentifier) const
    {
        if (!m_dict)
            return false;
        const QString language = describedLanguage();
        return language == localeIdentifier ||
               (!language.contains(u'_') && QLocale(language).name() == localeIdentifier);
    }

    bool contains(const QString &word) const override
    {
        const QByteArray bytes = word.toUtf8();
        return enchant_dict_check(m_dict, bytes.constData(), bytes.size()) <= 0; // below 0 is an error
    }

    QStringList suggestions(const QString &word) const override
    {
        const QByteArray bytes = word.toUtf8();
        size_t count = 0;
        char **list = enchant_dict_suggest(m_dict, bytes.constData(), bytes.size(), &count);
        QStringList result;
        for (size_t index = 0; index < count; ++index)
            result.append(QString::fromUtf8(list[index]));
        if (list)
            enchant_dict_free_string_list(m_dict, list);
        return result;
    }

    void learn(const QString &word) override
    {
        const QByteArray bytes = word.toUtf8();
        enchant_dict_add(m_dict, bytes.constData(), bytes.size());
    }

    void ignore(const QString &word) override
    {
        const QByteArray bytes = word.toUtf8();
        enchant_dict_add_to_session(m_dict, bytes.constData(), bytes.size());
    }

private:
    QString describedLanguage() const
    {
        QString language;
        const auto keepTag = [](const char *tag, const char *, const char *, const char *, void *result) {
            *static_cast<QString *>(result) = QString::fromUtf8(tag);
        };
        enchant_dict_describe(m_dict, keepTag, &language);
        return language;
    }

    std::unique_ptr<EnchantBroker, BrokerDeleter> m_broker;
    EnchantDict *m_dict;
};

} // namespace

std::unique_ptr<PLSpellDictionary> PLLoadSpellDictionary(const QString &localeIdentifier)
{
    auto dictionary = std::make_unique<EnchantDictionary>(localeIdentifier);
    if (!dictionary->isFor(localeIdentifier))
        return nullptr;
    return dictionary;
}
