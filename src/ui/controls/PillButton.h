// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QPushButton>

namespace zeph::ui {

/// A button. At most one on a screen is primary.
class PillButton : public QPushButton {
public:
    enum class Kind { primary, secondary, destructive, plain };
    enum class Height { small, normal, large };

    explicit PillButton(const QString &text, Kind kind = Kind::secondary,
                        QWidget *parent = nullptr);

    void setText(const QString &text);
    void setKind(Kind kind);
    Kind kind() const { return m_kind; }
    void setHeight(Height height);
    /// A symbol before the text; empty for none.
    void setSymbol(const QString &identifier);
    const QString &symbol() const { return m_symbol; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont textFont() const;
    double padding() const;
    Rounded ringShape() const;
    void paintBack(QPainter &painter, const Tokens &tokens) const;
    QColor inkOf(const Tokens &tokens) const;

    Kind m_kind;
    Height m_height = Height::normal;
    QString m_symbol;
    Interaction m_interaction{*this, [this] { return ringShape(); }};
};

} // namespace zeph::ui
