// The library against a module at fault: what each kind of fault is to its callers.
#include "emulator/faults/faults.h"
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;

namespace {

class FaultyDevice : public Device
{
public:
    void add(const char* fault) { faults_.add(fault); }
    void clear() { faults_.clear(); }

    Answer answer(const Sent& sent) override
    {
        const auto number = static_cast<std::uint32_t>(sent.number);
        const auto answer = emulator::answer(
            module_, faults_.of_command(number), number, std::as_bytes(std::span(sent.input)), sent.out_len);
        return {.error = answer.error,
            .reply = Bytes(reinterpret_cast<const char*>(answer.reply.data()), answer.reply.size()),
            .length = static_cast<std::int32_t>(answer.length())};
    }

private:
    emulator::Module module_;
    emulator::Faults faults_ {4};
};

// An instance with three LIFs, the first of which has an address, and what is read of them.
class EmulatedFaults : public testing::Test
{
protected:
    EmulatedFaults()
    {
        succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
        for (const char* lif : {"one", "two", "three"})
            succeed([=] { return LUMOZEPH_SetLif(lif, "", 0x0200000a, 0xff, 0, 0, 0, 0, "blue", nullptr); });
        succeed([] { return LUMOZEPH_EnableLif("blue", "one"); });
    }

    Call call(const std::function<std::int32_t()>& function) { return observe(device, function); }
    void succeed(const std::function<std::int32_t()>& function) { EXPECT_THAT(call(function), Succeeds()); }

    Call read_lifs(LumoLifList*& list)
    {
        return call([&] { return LUMOZEPH_GetLifs("blue", &list); });
    }

    // Fails, has nothing for the caller, and leaves nothing behind.
    void expect_no_lifs(int error)
    {
        LumoLifList* list = nullptr;
        const Call ended = read_lifs(list);
        EXPECT_THAT(ended, Fails(error));
        EXPECT_THAT(ended, LeavesNothingAllocated());
        EXPECT_EQ(list, nullptr);
    }

    // How many there are.
    int lifs()
    {
        LumoLifList* list = nullptr;
        EXPECT_THAT(read_lifs(list), Succeeds());
        const int count = list != nullptr ? list->count : -1;
        LUMOZEPH_ReleaseLifs(list);
        return count;
    }

    FaultyDevice device;
};

TEST_F(EmulatedFaults, OfAnErrnoAreThatErrnoAndChangeNothing)
{
    device.add("SetLif#2=EBUSY");
    device.add("DelLif=ENODEV");
    device.add("GetLifs#1=EIO");
    const auto set = [](const char* lif) {
        return [=] { return LUMOZEPH_SetLif(lif, "", 0, 0, 0, 0, 0, 0, "blue", nullptr); };
    };
    succeed(set("four"));
    EXPECT_THAT(call(set("five")), Fails(EBUSY));
    EXPECT_THAT(call([] { return LUMOZEPH_DelLif("one", "", "blue"); }), Fails(ENODEV));
    expect_no_lifs(EIO);
    EXPECT_EQ(lifs(), 4);
    device.clear();
    succeed([] { return LUMOZEPH_DelLif("one", "", "blue"); });
    EXPECT_EQ(lifs(), 3);
}

TEST_F(EmulatedFaults, OfShortRepliesAreShorterListsOrEbadmsg)
{
    device.add("GetLifs#1=short:1152");
    device.add("GetLifs#2=short:100");
    device.add("GetLifs#3=short:0");
    EXPECT_EQ(lifs(), 2);
    expect_no_lifs(EBADMSG);
    EXPECT_EQ(lifs(), 0);

    device.add("GetLif=short:575");
    LumoLifInfo* lif = nullptr;
    const Call ended = call([&] { return LUMOZEPH_GetLif("blue", "one", &lif); });
    EXPECT_THAT(ended, Fails(EBADMSG));
    EXPECT_THAT(ended, LeavesNothingAllocated());
    EXPECT_EQ(lif, nullptr);
}

// The value keeps what it held: the library does not look at the length of so small a reply.
TEST_F(EmulatedFaults, OfShortValuesAreNotNoticed)
{
    device.add("GetLogLevel=short:0");
    std::uint32_t value = 0;
    succeed([&] { return LUMOZEPH_GetLogLevel(&value); });
}

TEST_F(EmulatedFaults, OfShortResultsLeaveTheirCommandsDone)
{
    device.add("SetRoute=short:6");
    LumoCmdResult result;
    std::memset(&result, 'x', sizeof result);
    succeed([&] { return LUMOZEPH_SetRoute(0x0b, 0xff, 0x0100000a, "one", "blue", 0, &result); });
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(&result), sizeof result), Bytes(4, '\0') + "do" + Bytes(82, '\0'));
    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetRoutes("blue", &list); });
    EXPECT_EQ(list->count, 2);
    LUMOZEPH_ReleaseRoutes(list);
}

TEST_F(EmulatedFaults, OfFragmentsAreEbadmsg)
{
    device.add("Get*=fragment");
    expect_no_lifs(EBADMSG);
    LumoLifInfo* lif = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLif("blue", "one", &lif); }), Fails(EBADMSG));
    LumoBridgeInstanceList* bridges = nullptr; // of which there are none
    const Call ended = call([&] { return LUMOZEPH_GetBridgeInstances(&bridges); });
    EXPECT_EQ(ended.result, -1);
    EXPECT_EQ(ended.error, EBADMSG);
    EXPECT_THAT(ended, LeavesNothingAllocated());
}

// These lists decode what is left of a record.
TEST_F(EmulatedFaults, OfFragmentsAreMulticastGroups)
{
    succeed([] { return LUMOZEPH_AddMRoutingLocalRcvrs("blue", 9, "one"); });
    device.add("GetMRoutingAllMcastGroups=fragment");
    LumoMcastGroupList* groups = nullptr;
    succeed([&] { return LUMOZEPH_GetMRoutingAllMcastGroups("blue", &groups); });
    EXPECT_EQ(groups->count, 1);
    LUMOZEPH_ReleaseMRoutingMcastGroups(groups);
}

TEST_F(EmulatedFaults, OfLongRepliesAreFullLists)
{
    device.add("GetLifs=long");
    LumoLifList* list = nullptr;
    ASSERT_THAT(read_lifs(list), Succeeds());
    EXPECT_EQ(list->count, 10000);
    EXPECT_STREQ(list->records[2].lifName, "three");
    LUMOZEPH_ReleaseLifs(list);
}

TEST_F(EmulatedFaults, OfGarbageAreRecordsOfTheSameNumber)
{
    device.add("GetLifs=garbage");
    LumoLifList* list = nullptr;
    ASSERT_THAT(read_lifs(list), Succeeds());
    EXPECT_EQ(list->count, 3);
    EXPECT_STRNE(list->records[0].lifName, "one");
    EXPECT_LT(strnlen(list->records[0].lifName, 64), 64u);
    LUMOZEPH_ReleaseLifs(list);
}

TEST_F(EmulatedFaults, OfCountsAreHandedOnOrEbadmsg)
{
    device.add("GetRoutes=count:255");
    device.add("GetMRoutingRemoteRcvrs=count:2");
    LumoRouteList* routes = nullptr;
    succeed([&] { return LUMOZEPH_GetRoutes("blue", &routes); });
    ASSERT_EQ(routes->count, 1);
    EXPECT_EQ(+routes->records[0].nextHopCount, 255);
    LUMOZEPH_ReleaseRoutes(routes);

    LumoVtepTable* receivers = nullptr;
    const Call ended = call([&] { return LUMOZEPH_GetMRoutingRemoteRcvrs("blue", 1, &receivers); });
    EXPECT_THAT(ended, Fails(EBADMSG));
    EXPECT_THAT(ended, LeavesNothingAllocated());
}

TEST_F(EmulatedFaults, AreAsProbableAsTheySay)
{
    device.add("SetLogLevel%0.25=EIO");
    int failed = 0;
    for (int i = 0; i < 400; ++i)
        failed += call([] { return LUMOZEPH_SetLogLevel(1); }).result != 0 ? 1 : 0;
    EXPECT_NEAR(failed, 100, 35);
}

} // namespace
