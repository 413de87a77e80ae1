// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

class SymbolView;
class TextLabel;

/// How something went, in a symbol and a sentence. A new text is announced politely. An error
/// wraps to four lines, and its text can be selected.
class StatusLine : public QWidget {
public:
    enum class Kind { ok, error, hint, busy };

    explicit StatusLine(QWidget *parent = nullptr);

    /// Shows `text`; an empty one hides the line.
    void show(Kind kind, const QString &text);
    void clear() { show(Kind::hint, {}); }
    QString text() const;
    Kind kind() const { return m_kind; }

protected:
    bool event(QEvent *event) override;

private:
    void showUnlessEmpty();
    void announce();

    Kind m_kind = Kind::hint;
    SymbolView *m_symbol;
    TextLabel *m_text;
};

} // namespace zeph::ui
