// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QButtonGroup;

namespace zeph::ui {

/// One of a few choices side by side; one stop for the keyboard, where the arrows choose.
class Segmented : public QWidget {
public:
    explicit Segmented(const QStringList &labels, QWidget *parent = nullptr);

    /// Shows `index` as chosen, without a call of `onChosen`; -1 for none.
    void choose(int index);
    int chosen() const;

    /// Called when the user chose, with the index.
    std::function<void(int)> onChosen;

protected:
    QButtonGroup &group() { return *m_group; }

private:
    QButtonGroup *m_group;
};

} // namespace zeph::ui
