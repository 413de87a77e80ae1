// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"

#include <functional>

namespace zeph {
struct IntegrationConnection;
}

namespace zeph::ui {

class ChoiceBox;
class SettingRow;
class Switch;

/// What is shown of a GitHub account.
class GitHubOptions : public Card {
public:
    explicit GitHubOptions(QWidget *parent = nullptr);

    void show(const IntegrationConnection &account);
    /// Puts what the form says into `account`, which is as it was stored.
    void collect(IntegrationConnection &account) const;

    /// Tells that the graph needs a token, and where one is made.
    void setNeedsToken(bool needsToken);

    /// Called after each change by the user.
    std::function<void()> onEdited;

private:
    void edited();
    QWidget *makeTokenNote();

    Switch *m_stats;
    Switch *m_graph;
    ChoiceBox *m_layouts;
    SettingRow *m_layoutRow;
    QWidget *m_tokenNote;
};

} // namespace zeph::ui
