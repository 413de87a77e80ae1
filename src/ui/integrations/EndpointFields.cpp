// SPDX-License-Identifier: MIT
#include "ui/integrations/EndpointFields.h"

#include "services/accounts/CustomAPIConfig.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/TextField.h"
#include "ui/integrations/CurlImport.h"
#include "ui/integrations/HeaderRows.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/LabelledField.h"

namespace zeph::ui {

namespace {

constexpr double complaintGap = 8;
constexpr double headersGap = 6;

void call(const std::function<void()> &listener) {
    if (listener) {
        listener();
    }
}

} // namespace

EndpointFields::EndpointFields(QWidget *parent)
    : FormCard(parent),
      m_import(new CurlImport(this)),
      m_name(new TextField(words::endpointNamePlaceholder, this)),
      m_address(new TextField(words::endpointAddressPlaceholder, this)),
      m_complaint(new StatusLine(this)),
      m_headers(new HeaderRows(*m_address, this)) {
    m_address->setLayoutDirection(Qt::LeftToRight);
    add(m_import);
    add(new LabelledField(words::endpointName, m_name, this));
    add(new LabelledField(words::endpointAddress, m_address, this));
    add(m_complaint, complaintGap);
    addLabel(words::headers, fieldGap - complaintGap);
    addRows(m_headers, headersGap);
    for (TextField *field : {m_name, m_address}) {
        connect(field, &QLineEdit::textEdited, this, [this] { call(onEdited); });
        connect(field, &QLineEdit::returnPressed, this, [this] { call(onEntered); });
    }
    connect(m_address, &QLineEdit::editingFinished, this, [this] { showComplaint(); });
    m_headers->onEdited = [this] { call(onEdited); };
    m_headers->onEntered = [this] { call(onEntered); };
    m_import->import = [this](const QString &command) { return onImport(command); };
}

void EndpointFields::show(const CustomAPIConfig &config) {
    m_name->setText(config.name);
    m_address->setText(config.urlString);
    m_headers->setHeaders(config.headers);
}

void EndpointFields::collect(CustomAPIConfig &config) const {
    config.name = m_name->text();
    config.urlString = m_address->text();
    config.headers = m_headers->headers();
}

/// While an address is typed it is not wrong yet.
void EndpointFields::setCallable(bool isCallable) {
    m_isCallable = isCallable;
    if (isCallable || m_address->text().isEmpty()) {
        showComplaint();
    }
}

void EndpointFields::showComplaint() {
    const bool isWrong = !m_isCallable && !m_address->text().isEmpty();
    m_address->setWrong(isWrong);
    m_complaint->show(StatusLine::Kind::error, isWrong ? words::invalidAddress : QString());
}

QWidget *EndpointFields::firstStop() const {
    return m_name;
}

} // namespace zeph::ui
