// The library against the emulator's model: what is set can be read back.
#include "lumozeph.h"
#include "support/emulated.h"
#include "support/matchers.h"

#include <set>
#include <thread>

using namespace world;

namespace {

class Emulated : public testing::Test
{
protected:
    EmulatedDevice device;

    Call call(const std::function<std::int32_t()>& call) { return observe(device, call); }
};

TEST_F(Emulated, SettingsAreKept)
{
    std::uint32_t value = 0;
    EXPECT_THAT(call([] { return LUMOZEPH_SetLogLevel(3); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetExtendedLogLevel(4); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetStatsLevel(5); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetTxDispQueueSize(4096); }), Succeeds());
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLogLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 3u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetExtendedLogLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 4u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetStatsLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 5u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetTxDispQueueSize(&value); }), Succeeds());
    EXPECT_EQ(value, 4096u);
}

TEST_F(Emulated, AnInstanceIsCreatedReadUpdatedAndDeleted)
{
    LumoInstanceInfo* info = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Fails(ENOENT));
    EXPECT_EQ(info, nullptr);
    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstance("blue", 7, nullptr, 0); }), Succeeds());
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Succeeds());
    EXPECT_STREQ(info->instanceKey, "blue");
    EXPECT_EQ(+info->value1, 7u);
    const std::string uuid = info->text2;
    EXPECT_EQ(uuid.size(), 36u);
    LUMOZEPH_ReleaseInstance(info);

    EXPECT_THAT(call([&] { return LUMOZEPH_SetLumoInstance(uuid.c_str(), 8, nullptr, 0); }), Succeeds());
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Succeeds());
    EXPECT_EQ(+info->value1, 8u);
    LUMOZEPH_ReleaseInstance(info);

    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstanceTunables("blue", "knobs", 1); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_DelLumoInstance("blue"); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_DelLumoInstance("blue"); }), Fails(ENOENT));
    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstanceTunables("blue", "knobs", 1); }), Fails(ENOENT));
}

TEST_F(Emulated, AllInstancesAreListed)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "instance-" + std::to_string(i);
        names.insert(name);
        ASSERT_THAT(call([&] { return LUMOZEPH_SetLumoInstance(name.c_str(), 1, nullptr, 2); }), Succeeds());
    }
    LumoInstanceList* list = nullptr;
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstances(&list); }), Succeeds());
    ASSERT_EQ(list->count, 1000);
    for (int i = 0; i < list->count; ++i)
        names.erase(list->records[i].instanceKey);
    EXPECT_TRUE(names.empty());
    LUMOZEPH_ReleaseInstances(list);
}

TEST_F(Emulated, AnUnknownCommandIsReportedByTheModule)
{
    LumoEnvelope envelope {};
    EXPECT_THAT(call([&] { return LUMOZEPHIoctl(70, &envelope); }), Fails(ENOTTY));
}

TEST(Threads, CallsFromManyThreadsAreIndependent)
{
    EmulatedDevice device;
    const Installed installed(device);
    std::vector<std::thread> threads;
    std::atomic<int> failures {0};
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([t, &failures] {
            const std::string name = "thread-" + std::to_string(t);
            for (int i = 0; i < 50; ++i) {
                LumoInstanceInfo* info = nullptr;
                LumoInstanceList* list = nullptr;
                const auto value = static_cast<std::uint32_t>(1000 * t + i);
                if (LUMOZEPH_SetLumoInstance(name.c_str(), value, nullptr, 0) != 0 ||
                    LUMOZEPH_GetInstance(name.c_str(), &info) != 0 || info->value1 != value ||
                    LUMOZEPH_GetInstances(&list) != 0 || list->count < 1 || list->count > 8)
                    ++failures;
                LUMOZEPH_ReleaseInstance(info);
                LUMOZEPH_ReleaseInstances(list);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

} // namespace
