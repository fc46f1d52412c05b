#include "host/app/BackEnd.h"

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

using XServer = DisplayFacts::XServer;
using Part = DisplayFacts::ToolkitPart;

struct Chosen {
    const char* name;
    DisplayFacts facts;
    BackEndChoice choice;
};

void PrintTo(const Chosen& row, std::ostream* out) {
    *out << row.name;
}

class ChosenBackEnd : public ::testing::TestWithParam<Chosen> {};

TEST_P(ChosenBackEnd, FitsTheSession) {
    const auto choice = chooseBackEnd(GetParam().facts);
    ASSERT_TRUE(choice.has_value()) << sentenceKey(choice.error());
    EXPECT_EQ(*choice, GetParam().choice) << sentenceKey(choice->reason);
}

const Chosen chosen[]{
    {"LayersWhereTheCompositorHasThem",
     {.compositor = Compositor::withLayers},
     {BackEnd::wayland, BackEndReason::compositorLayers}},
    {"LayersEvenBesideAnXServer",
     {.compositor = Compositor::withLayers, .xServer = XServer::answering},
     {BackEnd::wayland, BackEndReason::compositorLayers}},
    {"LayersEvenBesideASilentXServer",
     {.compositor = Compositor::withLayers, .xServer = XServer::silent},
     {BackEnd::wayland, BackEndReason::compositorLayers}},
    {"TheXServerWithoutLayers",
     {.compositor = Compositor::withoutLayers, .xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::noLayers}},
    {"TheXServerWithoutACompositor",
     {.xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::noCompositor}},
    {"TheXServerWithoutTheToolkitsPart",
     {.compositor = Compositor::withLayers, .waylandPart = Part::missing, .xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::noWaylandPart}},
    {"TheXServerThatWasAskedFor",
     {.wanted = WantedBackEnd::x11, .compositor = Compositor::withLayers, .xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::commandLine}},
    {"TheLayersThatWereAskedFor",
     {.wanted = WantedBackEnd::wayland, .platform = "xcb", .compositor = Compositor::withLayers},
     {BackEnd::wayland, BackEndReason::commandLine}},
    {"TheXServerThatTheToolkitWasTold",
     {.platform = "xcb", .compositor = Compositor::withLayers, .xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::platformVariable}},
    {"WhateverElseTheToolkitWasTold",
     {.platform = "offscreen", .compositor = Compositor::withLayers},
     {BackEnd::toolkit, BackEndReason::platformVariable}},
    {"LayersWhereTheSessionAsksForWayland",
     {.platform = "wayland;xcb", .compositor = Compositor::withLayers},
     {BackEnd::wayland, BackEndReason::compositorLayers}},
    {"TheXServerWhereTheSessionAsksForWaylandInVain",
     {.platform = "wayland", .compositor = Compositor::withoutLayers, .xServer = XServer::answering},
     {BackEnd::x11, BackEndReason::noLayers}},
};

INSTANTIATE_TEST_SUITE_P(Table, ChosenBackEnd, ::testing::ValuesIn(chosen),
                         [](const auto& row) { return row.param.name; });

struct Refused {
    const char* name;
    DisplayFacts facts;
    BackEndProblem problem;
};

void PrintTo(const Refused& row, std::ostream* out) {
    *out << row.name;
}

class RefusedBackEnd : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedBackEnd, SaysWhy) {
    const auto choice = chooseBackEnd(GetParam().facts);
    ASSERT_FALSE(choice.has_value());
    EXPECT_EQ(choice.error(), GetParam().problem) << sentenceKey(choice.error());
    EXPECT_STRNE(sentenceKey(choice.error()), "");
}

const Refused refused[]{
    {"NothingToStandOn", {}, BackEndProblem::noDisplay},
    {"AnXServerThatIsSilent", {.xServer = XServer::silent}, BackEndProblem::silentXServer},
    {"NeitherLayersNorAnXServer", {.compositor = Compositor::withoutLayers}, BackEndProblem::noLayers},
    {"LayersButNotTheToolkitsPart",
     {.compositor = Compositor::withLayers, .waylandPart = Part::missing},
     BackEndProblem::noWaylandPart},
    {"NoXServerThoughAskedFor",
     {.wanted = WantedBackEnd::x11, .compositor = Compositor::withLayers},
     BackEndProblem::noXServer},
    {"NoCompositorThoughAskedFor",
     {.wanted = WantedBackEnd::wayland, .xServer = XServer::answering},
     BackEndProblem::noCompositor},
    {"NoLayersThoughAskedFor",
     {.wanted = WantedBackEnd::wayland,
      .compositor = Compositor::withoutLayers,
      .xServer = XServer::answering},
     BackEndProblem::noLayers},
};

INSTANTIATE_TEST_SUITE_P(Table, RefusedBackEnd, ::testing::ValuesIn(refused),
                         [](const auto& row) { return row.param.name; });

/// In some languages the order of words is another one after "because" than after a colon.
TEST(BackEndSentences, AProblemNeverHasTheTextOfAReason) {
    using enum BackEndProblem;
    for (const BackEndProblem problem :
         {noDisplay, noXServer, silentXServer, noCompositor, noLayers, noWaylandPart})
        for (const auto reason :
             {BackEndReason::commandLine, BackEndReason::platformVariable, BackEndReason::compositorLayers,
              BackEndReason::noCompositor, BackEndReason::noLayers, BackEndReason::noWaylandPart})
            EXPECT_STRNE(sentenceKey(problem), sentenceKey(reason));
}

} // namespace

} // namespace vantel::testing
