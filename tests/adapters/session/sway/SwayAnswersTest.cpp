// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayAnswers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(SwayAnswersTest, readsWorkspaces) {
    const auto workspaces = swayWorkspacesIn(R"([
        {"id": 4, "name": "1", "output": "eDP-1", "visible": true,
         "rect": {"x": 0, "y": 23, "width": 1280, "height": 777}},
        {"id": 9, "name": "2: mail", "output": "DP-2", "visible": false,
         "rect": {"x": 0, "y": 0, "width": 0, "height": 0}}])");
    const std::vector<SwayWorkspaceFacts> expected{
        {.id = 4,
         .name = u"1"_s,
         .output = u"eDP-1"_s,
         .area = {0, 23, 1280, 777},
         .isVisible = true},
        {.id = 9, .name = u"2: mail"_s, .output = u"DP-2"_s, .area = {}, .isVisible = false}};
    EXPECT_EQ(workspaces, expected);
}

TEST(SwayAnswersTest, aListThatCouldNotBeReadIsNoEmptyOne) {
    EXPECT_EQ(swayWorkspacesIn("[]"), std::vector<SwayWorkspaceFacts>());
    EXPECT_EQ(swayWorkspacesIn("["), std::nullopt);
    EXPECT_EQ(swayWorkspacesIn("{}"), std::nullopt);
    EXPECT_EQ(swayWorkspacesIn(""), std::nullopt);
}

TEST(SwayAnswersTest, theLaterOfTwoSurfacesLieBelowBeforeSwayHadASceneGraph) {
    EXPECT_EQ(swayLaterLieBelowIn(R"({"major": 1, "minor": 7, "patch": 0})"), true);
    EXPECT_EQ(swayLaterLieBelowIn(R"({"major": 1, "minor": 9, "patch": 0})"), true);
    EXPECT_EQ(swayLaterLieBelowIn(R"({"major": 1, "minor": 10, "patch": 0})"), false);
    EXPECT_EQ(swayLaterLieBelowIn(R"({"major": 2, "minor": 0, "patch": 0})"), false);
    for (const char *unknown : {"", "[]", "{}", R"({"major": 1})", R"({"minor": 7})"}) {
        EXPECT_EQ(swayLaterLieBelowIn(unknown), std::nullopt) << unknown;
    }
}

TEST(SwayAnswersTest, aWorkspaceWithoutAnIdIsLeftOut) {
    EXPECT_EQ(swayWorkspacesIn(R"([{"name": "1"}, {"id": -1}, {"id": 1e300}, 7])"),
              std::vector<SwayWorkspaceFacts>());
}

TEST(SwayAnswersTest, aRectangleBeyondAllMeasureIsEmpty) {
    const auto workspaces = swayWorkspacesIn(
        R"([{"id": 1, "rect": {"x": 0, "y": 0, "width": 1e300, "height": 1}},
            {"id": 2, "rect": {"x": "a", "y": 0, "width": 5, "height": 5}},
            {"id": 3, "rect": {"x": 0, "y": 0, "width": -5, "height": 5}}])");
    ASSERT_TRUE(workspaces && workspaces->size() == 3);
    for (const SwayWorkspaceFacts &workspace : *workspaces) {
        EXPECT_TRUE(workspace.area.isNull()) << workspace.id;
    }
}

TEST(SwayAnswersTest, findsTheFocusedWindowHoweverDeep) {
    EXPECT_EQ(swayFocusedWindowIn(R"({"type": "root", "nodes": [{"type": "output", "nodes": [
        {"type": "workspace", "focused": false, "nodes": [{"type": "con", "id": 3, "pid": 5}],
         "floating_nodes": [{"type": "floating_con", "id": 7, "focused": true, "pid": 42,
             "app_id": null, "window_properties": {"class": "XTerm", "instance": "xterm"}}]}
        ]}]})"),
              (SwayWindowFacts{.id = 7,
                               .applicationId = {},
                               .windowClass = u"XTerm"_s,
                               .windowInstance = u"xterm"_s,
                               .process = 42}));
}

TEST(SwayAnswersTest, aFocusedWorkspaceOrGroupIsNoWindow) {
    EXPECT_EQ(
        swayFocusedWindowIn(R"({"nodes": [{"type": "workspace", "focused": true, "id": 3}]})"),
        std::nullopt);
    EXPECT_EQ(swayFocusedWindowIn(R"({"nodes": [{"type": "con", "focused": true, "id": 3}]})"),
              std::nullopt);
}

TEST(SwayAnswersTest, readsWhatHappenedToAWindow) {
    EXPECT_EQ(
        swayWindowChangeIn(R"({"change": "focus", "container":
                  {"id": 7, "app_id": "foot", "pid": 17082}})"),
        (SwayWindowChange{u"focus"_s, {.id = 7, .applicationId = u"foot"_s, .process = 17082}}));
    EXPECT_EQ(swayWindowChangeIn(R"({"change": "focus"})"), std::nullopt);
    EXPECT_EQ(swayWindowChangeIn("focus"), std::nullopt);
}

TEST(SwayAnswersTest, aTitleInBytesThatAreNoTextCostsNothing) {
    EXPECT_EQ(swayWindowChangeIn("{\"change\": \"focus\", \"container\": {\"id\": 7, "
                                 "\"name\": \"\xff\xfe\", \"app_id\": \"foot\"}}"),
              (SwayWindowChange{u"focus"_s, {.id = 7, .applicationId = u"foot"_s}}));
}

TEST(SwayAnswersTest, tellsAnEmptyWorkspaceFromOneWithWindows) {
    EXPECT_EQ(swayWorkspaceChangeIn(
                  R"({"change": "focus", "current": {"nodes": [], "floating_nodes": []}})"),
              (SwayWorkspaceChange{u"focus"_s, true}));
    EXPECT_EQ(swayWorkspaceChangeIn(
                  R"({"change": "focus", "current": {"nodes": [], "floating_nodes": [{}]}})"),
              (SwayWorkspaceChange{u"focus"_s, false}));
    EXPECT_EQ(swayWorkspaceChangeIn(
                  R"({"change": "focus", "current": {"nodes": [{}], "floating_nodes": []}})"),
              (SwayWorkspaceChange{u"focus"_s, false}));
    EXPECT_EQ(swayWorkspaceChangeIn("[]"), std::nullopt);
}

TEST(SwayAnswersTest, onlyAClearYesIsSuccess) {
    EXPECT_TRUE(swaySuccessIn(R"({"success": true})"));
    EXPECT_FALSE(swaySuccessIn(R"({"success": false})"));
    EXPECT_FALSE(swaySuccessIn("true"));
    EXPECT_FALSE(swaySuccessIn(""));
}

TEST(SwayAnswersTest, aTitleIsToldByTheFirstBytes) {
    EXPECT_TRUE(swayTellsOfTitle(R"({ "change": "title", "container": { "id": 1 } })"));
    EXPECT_TRUE(swayTellsOfTitle(R"({"change":"title"})"));
    EXPECT_FALSE(swayTellsOfTitle(R"({ "change": "focus", "container": { "name": "title" } })"));
    EXPECT_FALSE(swayTellsOfTitle(R"({ "container": { "id": 1 }, "change": "title" })"));
    EXPECT_FALSE(swayTellsOfTitle(R"({ "change": )"));
    EXPECT_FALSE(swayTellsOfTitle(""));
}

} // namespace zeph
