// SPDX-License-Identifier: MIT
#include "ui/integrations/AccountFields.h"

#include "services/forms/AccountForm.h"
#include "services/forms/AccountWords.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/Look.h"
#include "ui/controls/SecretField.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/LabelledField.h"

#include <QHBoxLayout>

namespace zeph::ui {

namespace {

constexpr double pairGap = 10;

void setTextOf(TextField &field, const QString &text) {
    if (field.text() != text) {
        field.setText(text);
    }
}

} // namespace

AccountFields::AccountFields(const AccountWords &service, QWidget *parent)
    : FormCard(parent), m_name(new TextField(words::namePlaceholder, this)) {
    LabelledField *const name = labelled(words::nameLabel, m_name);
    LabelledField *value = nullptr;
    if (!service.valueLabel.isEmpty()) {
        m_value = new TextField(service.valuePlaceholder, this);
        value = labelled(service.valueLabel, m_value);
        if (service.valueLink) {
            addLink(*value, *service.valueLink);
        }
    }
    const bool asksForBoth = value != nullptr && !service.keyLabel.isEmpty();
    if (asksForBoth && !isTextLarge()) {
        addPair(name, value);
    } else {
        add(name);
        if (value != nullptr) {
            add(value);
        }
    }
    if (!service.keyLabel.isEmpty()) {
        m_secret = new SecretField(service.keyLabel, this);
        LabelledField *const secret = labelled(service.keyLabel, m_secret);
        secret->addNote(words::keyNote);
        if (service.keyLink) {
            addLink(*secret, *service.keyLink);
        }
        add(secret);
    }
}

void AccountFields::show(const IntegrationConnection &account) {
    setTextOf(*m_name, account.name);
    if (m_value != nullptr) {
        setTextOf(*m_value, account.extra.value_or(QString()));
    }
}

void AccountFields::collect(AccountForm &form) const {
    form.account.name = m_name->text();
    // Nothing in a field that never held anything is still nothing.
    if (m_value != nullptr && (form.account.extra || !m_value->text().isEmpty())) {
        form.account.extra = m_value->text();
    }
    form.secret = m_secret == nullptr ? QString() : m_secret->text();
}

void AccountFields::setKeeping(bool isKeeping) {
    if (m_secret != nullptr) {
        m_secret->setReadOnly(isKeeping);
    }
}

void AccountFields::forgetSecret() {
    if (m_secret != nullptr) {
        m_secret->clear();
    }
}

QWidget *AccountFields::firstStop() const {
    return m_name;
}

LabelledField *AccountFields::labelled(const QString &label, TextField *field) {
    connect(field, &QLineEdit::textEdited, this, [this] {
        if (onEdited) {
            onEdited();
        }
    });
    connect(field, &QLineEdit::returnPressed, this, [this] {
        if (onEntered) {
            onEntered();
        }
    });
    return new LabelledField(label, field, this);
}

void AccountFields::addPair(QWidget *first, QWidget *second) {
    auto *pair = new QWidget(this);
    auto *row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(pairGap));
    row->addWidget(first, 1, Qt::AlignTop);
    row->addWidget(second, 1, Qt::AlignTop);
    add(pair);
}

void AccountFields::addLink(LabelledField &below, const FormLink &link) {
    below.addBelow(new LinkLabel(link.text, link.address, this));
}

} // namespace zeph::ui
