// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

/// A symbol that is only looked at.
class SymbolView : public QWidget {
public:
    enum class Ink { ink, second, third, accent, ok, error };

    SymbolView(QString identifier, double size, Ink ink = Ink::second, QWidget *parent = nullptr);

    void set(const QString &identifier, Ink ink);
    const QString &identifier() const { return m_identifier; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_identifier;
    double m_size;
    Ink m_ink;
};

} // namespace zeph::ui
