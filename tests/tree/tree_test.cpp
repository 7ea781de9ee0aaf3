#include "tree/tree.h"

#include "tests/support/no_memory.h"
#include "tests/tree/built_model.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using namespace test;
using tessaview::NodeView;

namespace {

Bytes namedService(unsigned id, unsigned section, const std::vector<Bytes>& descriptors)
{
    return sdt(kSdtActual, kStream, kNetwork, {{.id = id, .descriptors = descriptors}},
               {.number = section});
}

} // namespace

TEST(Tree, ofAnEmptyModelIsItsRoot)
{
    tessaview::Tree tree;
    tree.rebuild(tessaview::NetworkMap());
    EXPECT_EQ(treeText(tree.root()), "ALL NETWORKS\n");
    tree.clear();
    EXPECT_TRUE(tree.empty());
}

TEST(Tree, showsNoTableThatWasNotReadOrHasNothingToShow)
{
    struct Case {
        std::vector<Bytes> sections;
        const char* children;
    };
    const std::vector<Case> cases{
        {{}, ""},
        {{cat({})}, ""},
        {{cat({conditionalAccess(1, 2)})}, "CAT"},
        {{pat(kStream, {})}, ""},
        {{bat(1, {}, {}), rst({}), tdt(0, 0), tot(0, 0, {})}, "BAT RST TDT TOT"},
        {{eit(0x50, 1, 2, 3, {})}, "EIT"},
        {{nit(kNitActual, 1, {}, {}), sdt(kSdtOther, 1, 2, {})},
         "NIT - actual network SDT - other transport stream"},
    };
    for (const auto& [sections, children] : cases)
        EXPECT_EQ(childLabels(BuiltModel(sections).transportStream()), children);
}

TEST(Tree, passesOverWhatDidNotDecode)
{
    BuiltModel built({});
    tessaview::Transponder stream;
    stream.transport_stream_id = 2;
    stream.nitActual[1][0];
    stream.sdtActual[1][2][0];
    stream.pmts.emplace_back();
    built.model.store(kNetwork, std::move(stream));
    built.tree.rebuild(built.model);
    EXPECT_EQ(treeText(built.tree.root().child(0).child(0)), "0002 - Unknown\n"
                                                             "  NIT - actual network\n"
                                                             "    NID 0001\n"
                                                             "  SDT - actual transport stream\n"
                                                             "    ORIGINAL NID 0001\n"
                                                             "      TID 0002\n"
                                                             "  PMT\n");
}

TEST(Tree, showsAllFourKindsOfEventsOnceThereIsOne)
{
    const BuiltModel built({eit(0x6F, 0xABC, 2, 0x0042, {})});
    EXPECT_EQ(treeText(built.at({"EIT"})), "EIT\n"
                                           "  actual_transport_stream, present/following\n"
                                           "  other_transport_stream, present/following\n"
                                           "  actual_transport_stream, schedule\n"
                                           "  other_transport_stream, schedule\n"
                                           "    NID 0042 - <unknown>\n"
                                           "      TID 0002\n"
                                           "        SID 0ABC - <service not in SDT>\n"
                                           "          0000\n");
}

TEST(Tree, showsOneOfAListByItselfAndMoreByNumber)
{
    const Bytes link = linkage(1, 2, 3, 4);
    const Bytes wide = serviceList({{1, 1}, {2, 1}});
    struct Case {
        std::vector<Bytes> descriptors;
        const char* tree;
    };
    const std::vector<Case> cases{
        {{}, "0001\n"},
        {{link}, "0001\n  LINKAGE_DESCRIPTOR\n"},
        {{link, wide, link, link},
         "0001\n"
         "  SERVICELIST_DESCRIPTOR\n"
         "    SERVICELISTSUB_DESCRIPTORS\n"
         "      0\n"
         "      1\n"
         "  LINKAGE_DESCRIPTORS\n"
         "    0\n"
         "    1\n"
         "    2\n"},
    };
    for (const auto& [descriptors, tree] : cases) {
        const BuiltModel built = modelOfService(descriptors);
        EXPECT_EQ(treeText(serviceOf(built)), tree);
    }
}

TEST(Tree, hasItsUpperLevelsWhenThereIsNoMemoryForAll)
{
    const BuiltModel built = modelOfService(std::vector<Bytes>(60, linkage(1, 2, 3, 4)));
    const auto labelsOf = [](const tessaview::Tree& tree, std::size_t count) {
        std::string labels;
        for (tessaview::NodeId id = 0; id < count; ++id)
            labels += NodeView(tree, id).label() + '\n';
        return labels;
    };
    tessaview::Tree cut;
    {
        const test::NoMemory none(built.tree.memory() / 2);
        cut.rebuild(built.model);
    }
    ASSERT_GT(cut.size(), 1U);
    ASSERT_LT(cut.size(), built.tree.size());
    EXPECT_EQ(labelsOf(cut, cut.size()), labelsOf(built.tree, cut.size()));
    std::size_t below = 0;
    for (tessaview::NodeId id = 0; id < cut.size(); ++id)
        below += NodeView(cut, id).childCount();
    EXPECT_EQ(below, cut.size() - 1);
    EXPECT_NE(cut.problem(), "");
    cut.rebuild(built.model);
    EXPECT_EQ(treeText(cut.root()), treeText(built.tree.root()));
    EXPECT_EQ(cut.problem(), "");
}

TEST(Tree, namesAServiceByItsFirstEntryWithADescriptor)
{
    const Bytes first = service(1, "", "First");
    const Bytes second = service(1, "", "Second");
    const BuiltModel built({
        namedService(0x10, 0, {networkName("no name of the service")}),
        namedService(0x10, 1, {first, second}),
        namedService(0x10, 2, {second}),
        namedService(0x11, 3, {}),
        sdt(kSdtOther, kStream, kNetwork, {{.id = 0x12, .descriptors = {first}}}),
        sdt(kSdtActual, 1, 2, {{.id = 0x10, .descriptors = {service(1, "", "Elsewhere")}}}),
        pmt(0x10, 1, {}),
        pmt(0x11, 1, {}),
        pmt(0x12, 1, {}),
        eit(0x4F, 0x10, 1, 2, {}),
        eit(0x4F, 0x10, 1, 3, {}),
    });
    EXPECT_EQ(childLabels(built.at({"PMT"})),
              "0010 - First 0011 - <service not in SDT> 0012 - <service not in SDT>");
    const NodeView others = built.at({"EIT", "other_transport_stream, present/following"});
    EXPECT_EQ(others.child(0).child(0).child(0).label(), "SID 0010 - Elsewhere");
    EXPECT_EQ(others.child(1).child(0).child(0).label(), "SID 0010 - <service not in SDT>");
}

TEST(Tree, namesStreamTypes)
{
    std::vector<ElementaryStream> streams;
    for (const unsigned type : {0x00U, 0x05U, 0x0EU, 0x0FU, 0x1BU, 0x7FU, 0x80U, 0x81U, 0xFFU})
        streams.push_back({.type = type, .pid = 1});
    const BuiltModel built({pmt(1, 1, streams)});
    EXPECT_EQ(childLabels(built.at({"PMT", "0001 - <service not in SDT>", "STREAM_INFO"})),
              "RESERVED ISO13818-1 PRIVATE SECTIONS ISO13818-1 AUXILIARY RESERVED RESERVED "
              "RESERVED USER PRIVATE USER PRIVATE USER PRIVATE");
}
