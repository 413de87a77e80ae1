// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"

#include <functional>

namespace zeph {
struct TestAnswer;
}

namespace zeph::ui {

class PillButton;
class StatusLine;
class TextLabel;
class ValueList;

/// Runs a test call and shows what there is to choose from.
class TestCallCard : public Card {
public:
    explicit TestCallCard(QWidget *parent = nullptr);

    void setCallable(bool isCallable);
    void setRunning(bool isRunning);
    /// Shows `answer`, or nothing for one that is empty.
    void show(const TestAnswer &answer);

    /// The last of the card for Tab.
    QWidget &lastStop() const;

    /// Called when the test is to run, and when it is to be given up.
    std::function<void()> onRun;
    std::function<void()> onCancel;
    /// Called with the row of a value that is to be added.
    std::function<void(int)> onChosen;

private:
    PillButton *m_run;
    StatusLine *m_status; ///< how the call goes, or why there is nothing
    TextLabel *m_line;    ///< what to do with the values
    ValueList *m_values;
    bool m_isRunning = false;
    bool m_isCallable = false;
};

} // namespace zeph::ui
