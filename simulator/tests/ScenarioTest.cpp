#include "simulator/Scenario.h"
#include "simulator/Records.h"

#include <gtest/gtest.h>

namespace sim {
namespace {

struct Sample {
    unsigned long dwCount;
    wchar_t *wszName;
};

void FillSample(Reader &data, Sample &sample) {
    data.Nested("sample", [&](Reader &record) {
        record.Field("dwCount", sample.dwCount);
        record.Field("wszName", sample.wszName);
    });
}

Catalog TestCatalog() {
    Catalog catalog;
    catalog.classInterfaces["DiskClass"] = {"IDisk", "IDisk2"};
    catalog.methods["IDisk.Get"] = [](const Json &data, const std::string &path) {
        Allocator memory;
        Reader reader(data, path, memory);
        Sample sample{};
        FillSample(reader, sample);
        reader.Done();
    };
    catalog.methods["IDisk.Delete"] = nullptr;
    catalog.events["Progress"] = [](const Json &data, const std::string &path) {
        Allocator memory;
        Reader reader(data, path, memory);
        unsigned long code = 0;
        reader.Field("code", code);
        reader.Done();
    };
    return catalog;
}

TEST(ScenarioResult, RefusesWhatIsNoResultCode) {
    const Json bad[] = {Json("0x"), Json("0x1234567890"), Json("80070057"), Json("E_WHATEVER"), Json(4294967296LL),
                        Json(1.5),  Json(true),           Json(nullptr)};
    for (const Json &value : bad)
        EXPECT_THROW(ParseResult(value, "r"), ScenarioError) << value.dump();
}

std::vector<std::string> Problems(const std::string &text) {
    Scenario scenario;
    return ParseScenario(text, TestCatalog(), scenario);
}

TEST(ScenarioParse, ReportsEveryProblemWithItsPath) {
    struct Case {
        const char *text;
        const char *problemStart;
    } cases[] = {
        {"{", "not valid JSON"},
        {"[]", "the scenario must be a JSON object"},
        {R"({"calllog": "x"})", "calllog: unknown setting"},
        {R"({"methods": {"IDisk.Gett": {}}})", "methods.IDisk.Gett: unknown method"},
        {R"({"methods": {"IDisk.Get": {"result": "0xZZ"}}})", "methods.IDisk.Get.result: expected a result code"},
        {R"({"methods": {"IDisk.Get": []}})", "methods.IDisk.Get: an empty list"},
        {R"({"methods": {"IDisk.Get": [{}, 5]}})", "methods.IDisk.Get[1]: expected an object"},
        {R"({"methods": {"IDisk.Get": {"sample": {"dwCount": -1}}}})", "methods.IDisk.Get.sample.dwCount: expected an integer"},
        {R"({"methods": {"IDisk.Get": {"sample": {"wszNmae": "x"}}}})", "methods.IDisk.Get.sample.wszNmae: no such field"},
        {R"({"methods": {"IDisk.Get": {"disks": []}}})", "methods.IDisk.Get.disks: no such field"},
        {R"({"methods": {"IDisk.Get": {"events": [{"event": "Bang"}]}}})", "methods.IDisk.Get.events[0].event: unknown event"},
        {R"({"methods": {"IDisk.Get": {"events": [{"event": "Progress", "cod": 1}]}}})",
         "methods.IDisk.Get.events[0].cod: no such field"},
        {R"({"methods": {"IDisk.Get": {"delayMs": -5}}})", "methods.IDisk.Get.delayMs: expected a number"},
        {R"({"classes": {"SnapClass": {}}})", "classes.SnapClass: unknown class"},
        {R"({"classes": {"DiskClass": {"missingInterfaces": ["IOther"]}}})",
         "classes.DiskClass.missingInterfaces: \"IOther\" is not an interface"},
        {R"({"classes": {"DiskClass": {"createResult": "nope"}}})", "classes.DiskClass.createResult: expected a result code"},
        {R"({"lingerSeconds": "5"})", "lingerSeconds: expected a number"},
    };
    for (const Case &c : cases) {
        std::vector<std::string> problems = Problems(c.text);
        ASSERT_EQ(problems.size(), 1u) << c.text;
        EXPECT_EQ(problems[0].rfind(c.problemStart, 0), 0u) << c.text << " gave " << problems[0];
    }
    EXPECT_EQ(Problems(R"({"lingerSeconds": "5", "methods": {"IDisk.X": 1, "IDisk.Get": {"result": []}}})").size(), 3u);
}

// The settings and responses that every case's scenario uses are read as the
// end-to-end runs show; these are the ones no run can tell apart (the cases
// name their call log by its Windows path).
TEST(ScenarioParse, ReadsTheTimesAndNumbersTheResponses) {
    Scenario scenario;
    ASSERT_TRUE(ParseScenario(R"({"callLog": "/tmp/calls.jsonl", "lingerSeconds": 0.5,
        "methods": {"IDisk.Get": [{"delayMs": 20}, {}]}})",
                              TestCatalog(), scenario)
                    .empty());
    EXPECT_EQ(scenario.callLog, L"Z:\\tmp\\calls.jsonl");
    EXPECT_EQ(scenario.lingerMs, 500u);
    const std::vector<Response> &responses = scenario.methods["IDisk.Get"];
    ASSERT_EQ(responses.size(), 2u);
    EXPECT_EQ(responses[0].delayMs, 20u);
    EXPECT_EQ(responses[0].index, 0);
    EXPECT_EQ(responses[1].index, 1);
}

const char kTwoResponses[] = R"({"methods": {"IDisk.Get": [{"result": 1}, {"result": 2}]}})";

// Clients that run at the same time each walk the list from its start; a
// changed scenario sends every object back to the start of the new one.
TEST(ScenarioEngine, KeepsOnePositionPerObjectUntilTheTextChanges) {
    struct Case {
        const char *secondText;
        bool sameObject;
        HRESULT expected;
    } cases[] = {
        {kTwoResponses, true, 2},  // the same object goes on
        {kTwoResponses, false, 1}, // another object, even while the first lives, starts over
        {R"({"methods": {"IDisk.Get": [{"result": 7}, {"result": 8}]}})", true, 7},
    };
    for (const Case &c : cases) {
        Engine engine(TestCatalog());
        engine.Load(kTwoResponses);
        ResponsePositions first, second;
        engine.Next("IDisk.Get", first);
        engine.Load(c.secondText);
        EXPECT_EQ(engine.Next("IDisk.Get", c.sameObject ? first : second).result, c.expected) << c.secondText << c.sameObject;
    }
}

TEST(ScenarioEngine, AFaultyTextDropsTheScenarioInForce) {
    Engine engine(TestCatalog());
    engine.Load(kTwoResponses);
    EXPECT_THROW(engine.Load(R"({"methods": {"IDisk.Nope": {}}})"), ScenarioError);
    EXPECT_FALSE(engine.Loaded());
    ResponsePositions object;
    EXPECT_EQ(engine.Next("IDisk.Get", object).index, -1);
}

} // namespace
} // namespace sim
