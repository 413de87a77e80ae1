// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/FormCard.h"

#include <functional>
#include <optional>

namespace zeph {
struct CustomAPIConfig;
}

namespace zeph::ui {

class CurlImport;
class HeaderRows;
class StatusLine;
class TextField;

/// Name, address and headers of a custom endpoint, and the import of a command.
class EndpointFields : public FormCard {
public:
    explicit EndpointFields(QWidget *parent = nullptr);

    void show(const CustomAPIConfig &config);
    /// Puts what is typed into `config`.
    void collect(CustomAPIConfig &config) const;

    /// Marks an address that was typed and can't be called, once one has left its field.
    void setCallable(bool isCallable);

    QWidget *firstStop() const;

    /// Called after each change by the user, and on Enter in a field.
    std::function<void()> onEdited;
    std::function<void()> onEntered;
    /// Takes a command in, and returns what to tell when it can't.
    std::function<std::optional<QString>(const QString &command)> onImport;

private:
    void showComplaint();

    CurlImport *m_import;
    TextField *m_name;
    TextField *m_address;
    StatusLine *m_complaint;
    HeaderRows *m_headers;
    bool m_isCallable = true;
};

} // namespace zeph::ui
