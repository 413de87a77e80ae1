// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/FormCard.h"

#include <functional>

namespace zeph {
struct AccountForm;
struct AccountWords;
struct FormLink;
struct IntegrationConnection;
} // namespace zeph

namespace zeph::ui {

class LabelledField;
class SecretField;
class TextField;

/// Name, key and second value of an account, as far as its service asks for them.
class AccountFields : public FormCard {
public:
    explicit AccountFields(const AccountWords &service, QWidget *parent = nullptr);

    /// Shows name and second value; what is the same already keeps its cursor.
    void show(const IntegrationConnection &account);
    /// Puts what is typed into `form`.
    void collect(AccountForm &form) const;

    /// The key is on its way to the keyring: it stands still until then.
    void setKeeping(bool isKeeping);
    /// The key is kept and need not be seen any more.
    void forgetSecret();

    QWidget *firstStop() const;

    /// Called after each change of a field by the user, and on Enter in one.
    std::function<void()> onEdited;
    std::function<void()> onEntered;

private:
    LabelledField *labelled(const QString &label, TextField *field);
    void addPair(QWidget *first, QWidget *second);
    void addLink(LabelledField &below, const FormLink &link);

    TextField *m_name;
    TextField *m_value = nullptr;    ///< absent where the service has no use for it
    SecretField *m_secret = nullptr; ///< likewise
};

} // namespace zeph::ui
