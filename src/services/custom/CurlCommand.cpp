// SPDX-License-Identifier: MIT
#include "services/custom/CurlCommand.h"

#include "services/accounts/HeaderLine.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph::CustomAPI {

namespace {

/// The state of a shell between two characters.
class Tokenizer {
public:
    void take(QChar character) {
        if (m_isEscaped) {
            m_isEscaped = false;
            if (character != u'\n') {
                m_token += character;
            }
        } else if (character == u'\\' && m_quote != u'\'') {
            m_isEscaped = true;
        } else if (character == u'\'' || character == u'"') {
            takeQuote(character);
        } else if (m_quote.isNull() && isSeparator(character)) {
            endToken();
        } else {
            m_token += character;
        }
    }

    /// A carriage return with its newline is one character to the user, and no separator.
    void takeLineEnd() {
        m_isEscaped = false;
        m_token += u"\r\n";
    }

    QStringList finish() {
        endToken();
        return m_tokens;
    }

private:
    static bool isSeparator(QChar character) {
        return character == u' ' || character == u'\t' || character == u'\n';
    }

    void takeQuote(QChar quote) {
        if (m_quote.isNull()) {
            m_quote = quote;
        } else if (m_quote == quote) {
            m_quote = QChar();
        } else {
            m_token += quote;
        }
    }

    void endToken() {
        if (!m_token.isEmpty()) {
            m_tokens.append(m_token);
            m_token.clear();
        }
    }

    QStringList m_tokens;
    QString m_token;
    QChar m_quote; // null outside quotes
    bool m_isEscaped = false;
};

/// Flags that are left out together with the word after them.
bool dropsItsArgument(const QString &flag) {
    static constexpr std::array flags = {u"-X",         u"--request",     u"-d", u"--data",
                                         u"--data-raw", u"--data-binary", u"-u", u"--user",
                                         u"-o",         u"--output",      u"-A", u"--user-agent"};
    return std::any_of(flags.begin(), flags.end(),
                       [&flag](const char16_t *name) { return flag == QStringView(name); });
}

bool isAddress(const QString &token) {
    return token.startsWith("http://"_L1) || token.startsWith("https://"_L1);
}

} // namespace

QStringList tokenizeCurl(const QString &text) {
    Tokenizer tokenizer;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const bool isLineEnd =
            text[place] == u'\r' && place + 1 < text.size() && text[place + 1] == u'\n';
        if (isLineEnd) {
            tokenizer.takeLineEnd();
            ++place;
        } else {
            tokenizer.take(text[place]);
        }
    }
    return tokenizer.finish();
}

std::optional<CurlCommand> parseCurl(const QString &text) {
    const QStringList tokens = tokenizeCurl(text);
    CurlCommand command;
    for (qsizetype index = 0; index < tokens.size(); ++index) {
        const QString &token = tokens[index];
        const bool hasNext = index + 1 < tokens.size();
        if (token == u"-H" || token == u"--header") {
            // A refused argument is looked at again, as a token of its own.
            if (const auto header = hasNext ? parseHeader(tokens[index + 1]) : std::nullopt) {
                command.headers.push_back({QUuid::createUuid(), header->name, header->value});
                ++index;
            }
        } else if (token == u"--url") {
            if (hasNext) {
                command.url = tokens[++index];
            }
        } else if (dropsItsArgument(token)) {
            ++index;
        } else if (command.url.isEmpty() && isAddress(token)) {
            command.url = token;
        }
    }
    return command.url.isEmpty() ? std::nullopt : std::optional(std::move(command));
}

} // namespace zeph::CustomAPI
