// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "services/forms/CustomAPIDraft.h"
#include "ui/integrations/IntegrationsPage.h"

#include <memory>
#include <optional>

namespace zeph::ui {

class DataPointRows;
class EditorBar;
class EndpointFields;
class PaneHeader;
class TestCallCard;

/// The form of a custom endpoint: its address, a test call, and the values to show.
class CustomAPIEditor : public IntegrationsPage {
public:
    /// Of the endpoint with that id; without one, of a new endpoint.
    CustomAPIEditor(const IntegrationsContext &context, PageActions actions, const QUuid &id,
                    QWidget *parent = nullptr);

    QWidget *firstStop() override;
    bool hasUnsaved() const override;

    void refresh();

private:
    void connectParts();
    void collect();
    CustomAPIConfig typed() const;
    void edited();

    std::optional<QString> importCurl(const QString &command);
    void runTest();
    void cancelTest();
    void showAnswer();
    void addField(int row);

    void save();
    void saved(const std::optional<QString> &failure);
    void remove();

    CustomAPIDraft m_draft;
    CustomAPIConfig m_kept; ///< as it is in the store
    CustomAPIConfig m_sent; ///< as it is on its way to the keyring
    PaneHeader *m_header;
    EndpointFields *m_fields;
    TestCallCard *m_test;
    DataPointRows *m_points;
    EditorBar *m_bar;
    std::unique_ptr<WorkOwner> m_call;        ///< of the test call; its end gives the call up
    std::optional<EndpointListing> m_listing; ///< what the last one came to
    bool m_isSaving = false;
    bool m_hasLaterChanges = false; ///< than what was saved last
};

} // namespace zeph::ui
