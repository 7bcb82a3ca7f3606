// States as documents: what is loaded is there, what is saved is the same, and what is wrong is told.
#include "emulator/state/patch.h"
#include "emulator/state/state_file.h"

#include "emulator/model/state.h"
#include "emulator/protocol/commands.h"

#include <chrono>
#include <cstring>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

using namespace emulator;
using testing::HasSubstr;

namespace {

std::string read_file(const std::string& path)
{
    std::ifstream file(path);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

class StateFile : public testing::Test
{
protected:
    Module module {{.clock = Clock::Manual}};

    void load(const std::string& text) { set_state(module, json::parse(text)); }
    std::string save() { return json::print(state_of(module)); }

    std::string printed_at(const std::string& pointer)
    {
        const json::Value document = state_of(module);
        const json::Value* const found = json::at(document, pointer);
        return found == nullptr ? "nothing" : json::print(*found);
    }

    // What is wrong with the text; nothing if it can be loaded.
    std::string wrong(const std::string& text)
    {
        try {
            load(text);
            return "";
        } catch (const json::Error& error) {
            return error.what();
        }
    }

    // The reply to a command whose request begins with a name, and may have another text.
    std::vector<std::byte> reply(
        std::uint32_t number, const std::string& name, std::size_t at = 0, const std::string& other = "")
    {
        std::vector<std::byte> request(protocol::request_size);
        std::memcpy(request.data(), name.data(), name.size());
        std::memcpy(&request[at], other.data(), other.size());
        const Answer answer = module.answer(number, request, 0x7fffffff);
        EXPECT_EQ(answer.error, 0) << number;
        return answer.reply;
    }

    static std::uint64_t u64(const std::vector<std::byte>& bytes, std::size_t at)
    {
        std::uint64_t value = 0;
        if (at + sizeof value <= bytes.size())
            std::memcpy(&value, &bytes[at], sizeof value);
        return value;
    }
};

constexpr std::size_t lif_name = 192;

// Everything that there is, each member with a value of its own.
constexpr const char* everything = R"({
  "logLevel": 1,
  "extendedLogLevel": 2,
  "statsLevel": 3,
  "txDispQueueSize": 4,
  "controlPlaneActive": 5,
  "saves": 6,
  "instancesCreated": 7,
  "statistics": {
    "1": {
      "value": 18446744073709551615
    }
  },
  "policyTables": {
    "7": {
      "name": "a table",
      "policies": {
        "1 2": {
          "value": 3
        }
      }
    }
  },
  "bridges": {
    "a bridge": {
      "value": 1,
      "enabled": true,
      "haState": 2,
      "replicationMode": 3,
      "fdbAgeing": 4,
      "fdb": {
        "1 2 02:00:00:00:00:0a": {
          "value": 5,
          "flags": 6,
          "learned": 1.5
        }
      },
      "networks": {
        "1 2": {
          "value1": 3,
          "value2": 4,
          "value5": 5,
          "value6": 6,
          "value7": 7,
          "value8": 8,
          "data": {
            "11": {
              "value": 9,
              "rate": 10
            }
          }
        }
      },
      "ports": {
        "1": {
          "value2": 2,
          "value3": 3,
          "value4": 4,
          "data": {
            "0": {
              "value": 5
            }
          }
        }
      }
    }
  },
  "clusters": {
    "a cluster": {
      "debugLevel": 1,
      "profile": {
        "flag": 2,
        "value1": 3,
        "value2": 4
      },
      "nodes": {
        "a%20node": {
          "mac": "02:00:00:00:00:0b",
          "link": "down",
          "age": 2
        }
      }
    }
  },
  "endpoints": {
    "an endpoint": {
      "bridge": "a bridge",
      "name": "its name",
      "value1": 1,
      "value2": 2,
      "value3": 3,
      "flag1": 4,
      "flag2": 5,
      "statistics": "STATISTICS",
      "status": "STATUS"
    }
  },
  "pmacs": {
    "02:00:00:00:00:0c": {
      "value": 1
    }
  },
  "localTransportNode": {
    "present": true,
    "text1": "one",
    "text2": "two",
    "text3": "three",
    "value": 4,
    "block": "BLOCK"
  },
  "connectionDeletionTime": 8,
  "connectionDeletions": [
    0.25
  ],
  "connections": {
    "a connection": {
      "text1": "one",
      "text2": "two",
      "text3": "three",
      "text4": "four",
      "link": "down",
      "age": 0.000000001
    }
  },
  "bfdConnections": {
    "a port": {
      "text": "text",
      "mac": "02:00:00:00:00:0d",
      "link": "down",
      "age": 3
    }
  },
  "bfdSessions": {
    "some": {
      "count": 3,
      "key": "those",
      "value1": 1,
      "addr1": "02:00:00:00:00:ff",
      "addr1Step": 1,
      "addr2": "02:00:00:00:01:00",
      "addr2Step": 256,
      "value2": 2,
      "value3": 3,
      "value4": 4,
      "value5": 5,
      "value6": 6
    }
  },
  "instances": {
    "blue {{and}} green": {
      "uuid": "01234567-89ab-cdef-0123-456789abcdef",
      "value1": 1,
      "text": "a text",
      "value2": 2,
      "tunables": "knobs",
      "tunablesValue": 3,
      "lifs": {
        "uplink \udc80\u0001\"": {
          "auxName": "second",
          "address": "10.0.0.2/24",
          "diAddress": "10.0.0.3",
          "mac": "02:00:00:00:00:01",
          "paramA": 1,
          "paramB": 2,
          "paramC": 3,
          "vxlanMulticast": "239.0.0.1",
          "raMtu": 1500,
          "enabled": true,
          "vxlanControlPlane": true,
          "multicastRouting": true,
          "dhcpRelay": {
            "count": 2,
            "servers": [
              {},
              {
                "address": "0a000001000000000000000000000000",
                "family": 2
              }
            ]
          },
          "ipv6": {
            "2001:db8::2/64": {}
          },
          "policyTableRefs": [
            {
              "bytes": "070000000000000000000000000000000000000000000001"
            }
          ],
          "statistics": {
            "99": {
              "value": 1,
              "rate": 1000000000000000000
            }
          }
        },
        "bridged": {
          "kind": "bridge",
          "auxName": "a bridge"
        }
      },
      "routes": {
        "10.1.0.0/16": {
          "param": 1,
          "nextHops": {
            "10.0.0.1 -": {},
            "0.0.0.0 bridged": {}
          }
        }
      },
      "routes6": {
        "::/0 fe80::1 bridged": {}
      },
      "lifPolicies": {
        "-1 10.0.0.0/8 10.0.0.1 bridged a%20text%25": {
          "param": 1
        }
      },
      "neighbourAgeing": 9,
      "arp": {
        "10.0.0.9 bridged": {
          "mac": "02:00:00:00:00:02",
          "learned": 0
        }
      },
      "proxyArp": {
        "10.0.0.10 bridged": {}
      },
      "neighbours6": {
        "fe80::9 bridged": {
          "mac": "02:00:00:00:00:03"
        }
      },
      "proxyNeighbours6": {
        "fe80::a bridged": {}
      },
      "multicast": {
        "name": "domain",
        "value1": 1,
        "value2": 2,
        "value3": 3,
        "value4": 4
      },
      "multicastRouter": {
        "present": true,
        "value": 5
      },
      "localReceivers": {
        "1 %2d": {}
      },
      "remoteReceivers": {
        "1 2": {
          "value1": 3,
          "value2": 4,
          "hwAddress": "02:00:00:00:00:04"
        }
      },
      "controlPlaneAddress": "10.0.0.4",
      "syncState": 6,
      "controlPlaneStatistics": {
        "0": {
          "value": 1
        }
      }
    }
  },
  "rssTargets": {
    "eth0": {
      "tunables": 1,
      "table": "TABLE",
      "words": [
        WORDS
      ],
      "statistics": {
        "47": {
          "value": 1,
          "rate": 2,
          "billionths": 3
        }
      }
    }
  }
}
)";

std::string with(std::string text, const std::string& name, const std::string& value)
{
    return text.replace(text.find(name), name.size(), value);
}

std::string digits(std::size_t bytes)
{
    std::string text(2 * bytes, '0');
    text.back() = '1';
    return text;
}

std::string all_there_is()
{
    std::string words = "0";
    for (int i = 1; i < 16; ++i)
        words += ",\n        " + std::to_string(i);
    std::string text = with(with(everything, "STATISTICS", digits(82)), "STATUS", digits(165));
    return with(with(with(text, "BLOCK", digits(64)), "TABLE", digits(128)), "WORDS", words);
}

TEST_F(StateFile, IsSavedAsItWasLoaded)
{
    load(all_there_is());
    EXPECT_EQ(save(), all_there_is());
}

TEST_F(StateFile, OfANewModuleIsEmpty)
{
    EXPECT_EQ(save(), "{}\n");
}

TEST_F(StateFile, MovesOnWithTheTime)
{
    load(R"({"instances": {"blue": {"neighbourAgeing": 10,
        "lifs": {"uplink": {"statistics": {"3": {"value": 5, "rate": 7}}}},
        "arp": {"10.0.0.1 uplink": {"mac": "02:00:00:00:00:01", "learned": 8},
                "10.0.0.2 uplink": {"mac": "02:00:00:00:00:02"}}}},
        "bridges": {"b": {"fdbAgeing": 3, "fdb": {"1 2 02:00:00:00:00:01": {"learned": 0}}}}})");
    const auto neighbours = [&] { return reply(protocol::number_of("GetArps"), "blue").size() / 114 - 1; };
    const auto forwarded = [&] { return module.state().bridges.find(std::string("b"))->fdb.size(); };
    const auto counted = [&] {
        return u64(reply(protocol::number_of("GetLifStats"), "blue", lif_name, "uplink"), 4 + 3 * 8);
    };
    EXPECT_EQ(counted(), 5u);
    EXPECT_EQ(neighbours(), 2u);
    module.advance(std::chrono::milliseconds(1999));
    EXPECT_EQ(neighbours(), 2u);
    EXPECT_EQ(counted(), 5u + 13);
    module.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(neighbours(), 1u);
    EXPECT_EQ(counted(), 5u + 14);
    EXPECT_EQ(forwarded(), 1u);
    module.advance(std::chrono::seconds(1));
    EXPECT_EQ(forwarded(), 0u);
    EXPECT_EQ(reply(protocol::number_of("ResetLifStats"), "blue", lif_name, "uplink").size(), 0u);
    EXPECT_EQ(counted(), 0u);
    module.advance(std::chrono::seconds(2));
    EXPECT_EQ(counted(), 14u);
    EXPECT_EQ(neighbours(), 1u);
}

TEST_F(StateFile, DescribesManyInAFewLines)
{
    load(R"({"instances": {"i{1..3}": {
        "lifs": {"l{5..6}": {"address": "10.0.0.1/8{+256}", "paramA": "{i}", "paramB": "10{+2}", "mac": "02:00:00:00:00:ff{+1}"}},
        "routes": {"10.0.0.0/24{+256*3}": {"nextHops": {"10.0.0.1 l5": {}}}},
        "arp": {"10.0.{1..2}.7 l5": {"mac": "02:00:00:00:00:0{i}"}}}}})");
    Module same({.clock = Clock::Manual});
    set_state(same, json::parse(R"({"instances": {
        "i1": {"lifs": {"l5": {"address": "10.0.0.1/8", "paramA": 5, "paramB": 10, "mac": "02:00:00:00:00:ff"},
                        "l6": {"address": "10.0.1.1/8", "paramA": 6, "paramB": 12, "mac": "02:00:00:00:01:00"}},
               "routes": {"10.0.0.0/24": {"nextHops": {"10.0.0.1 l5": {}}},
                          "10.0.1.0/24": {"nextHops": {"10.0.0.1 l5": {}}},
                          "10.0.2.0/24": {"nextHops": {"10.0.0.1 l5": {}}}},
               "arp": {"10.0.1.7 l5": {"mac": "02:00:00:00:00:01"}, "10.0.2.7 l5": {"mac": "02:00:00:00:00:02"}}}}})"));
    const json::Value all = state_of(module);
    const json::Value one = state_of(same);
    EXPECT_EQ(json::at(all, "/instances")->object()->size(), 3u);
    EXPECT_TRUE(json::equal(*json::at(all, "/instances/i3/lifs"), *json::at(one, "/instances/i1/lifs")));
    EXPECT_TRUE(json::equal(*json::at(all, "/instances/i3/routes"), *json::at(one, "/instances/i1/routes")));
    EXPECT_TRUE(json::equal(*json::at(all, "/instances/i3/arp"), *json::at(one, "/instances/i1/arp")));
}

TEST_F(StateFile, MovesWhatItsRangesStandBehind)
{
    load(R"({"bridges": {"b": {"fdb": {"7 9 02:00:00:00:00:fe{+1*3}": {}}}},
        "instances": {"i": {"lifs": {"l": {}},
            "arp": {"10.0.0.1{+1*2} l": {"mac": "02:00:00:00:00:ff{+1}"}},
            "proxyNeighbours6": {"fe80::1 l": {}, "fe80::2{+65536*2} l": {}},
            "routes6": {"2001:db8::/128 2001:db8::1{+1*2} -": {}},
            "lifPolicies": {"1 10.0.{1..2}.0/24 1.2.3.4 - t": {}, "2 10.0.0.0/8{+16777216*2} 1.2.3.4 - t": {}}}}})");
    const auto keys_at = [&](const std::string& pointer) {
        const json::Value document = state_of(module);
        std::vector<std::string> keys;
        for (const json::Member& member : *json::at(document, pointer)->object())
            keys.push_back(member.name);
        return keys;
    };
    using testing::ElementsAre;
    EXPECT_THAT(keys_at("/bridges/b/fdb"),
        ElementsAre("7 9 02:00:00:00:00:fe", "7 9 02:00:00:00:00:ff", "7 9 02:00:00:00:01:00"));
    EXPECT_EQ(printed_at("/instances/i/arp/10.0.0.1 l/mac"), "\"02:00:00:00:00:ff\"\n");
    EXPECT_EQ(printed_at("/instances/i/arp/10.0.0.2 l/mac"), "\"02:00:00:00:01:00\"\n");
    EXPECT_THAT(keys_at("/instances/i/proxyNeighbours6"), ElementsAre("fe80::1 l", "fe80::2 l", "fe80::1:2 l"));
    EXPECT_THAT(
        keys_at("/instances/i/routes6"), ElementsAre("2001:db8::/128 2001:db8::1 -", "2001:db8::/128 2001:db8::2 -"));
    EXPECT_THAT(
        keys_at("/instances/i/lifPolicies"), ElementsAre("1 10.0.1.0/24 1.2.3.4 - t", "1 10.0.2.0/24 1.2.3.4 - t",
                                                 "2 10.0.0.0/8 1.2.3.4 - t", "2 11.0.0.0/8 1.2.3.4 - t"));
}

TEST_F(StateFile, KeepsWhatIsNotYetOne)
{
    load(R"({"statistics": {"0": {"rate": 7}, "1": {"value": 18446744073709551615, "rate": 18446744073709551615}}})");
    Module whole({.clock = Clock::Manual});
    set_state(whole, state_of(module));
    for (int i = 0; i < 30; ++i) {
        module.advance(std::chrono::milliseconds(11));
        const std::string saved = save();
        load(saved);
        EXPECT_EQ(save(), saved);
    }
    whole.advance(std::chrono::milliseconds(330));
    EXPECT_EQ(save(), json::print(state_of(whole)));
    EXPECT_EQ(printed_at("/statistics/0/value"), "2\n");
}

TEST_F(StateFile, ForgetsInTimeWhetherOrNotSomebodyLooks)
{
    load(
        R"({"bridges": {"b": {"fdb": {"1 1 02:00:00:00:00:01": {"learned": 299.5}, "1 1 02:00:00:00:00:02": {"learned": 1}}}}})");
    EXPECT_THAT(save(), HasSubstr("299.5"));
    module.advance(std::chrono::milliseconds(499));
    EXPECT_THAT(save(), HasSubstr("299.999"));
    module.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(printed_at("/bridges/b/fdb"), "{\n  \"1 1 02:00:00:00:00:02\": {\n    \"learned\": 1.5\n  }\n}\n");
}

TEST_F(StateFile, TellsWhereItIsWrong)
{
    load(all_there_is());
    const std::vector<std::pair<std::string, std::string>> cases {
        {"", "1:1: expected a value"},
        {"[]", "1:1: expected an object"},
        {"{\n  \"logLevel\": }", "2:15: expected a value"},
        {"{\"logLevel\": 1, \"logLevel\": 2}", "1:17: expected no second 'logLevel'"},
        {"{\"logLevel\": 4294967296}", "1:14: expected a number from 0 to 4294967295"},
        {"{\"logLevel\": -1}", "1:14: expected a number from 0"},
        {"{\"loglevel\": 1}", "1:2: expected one of logLevel, extendedLogLevel"},
        {"{\"instances\":\n {\"\": {}}}", "2:3: expected a name"},
        {R"({"instances": {"i{1..3": {}}})", "1:16: expected {i}, or {+N} at the end"},
        {R"({"instances": {"i{+1*3": {}}})", "1:16: expected {i}, or {+N} at the end"},
        {R"({"instances": {"i{+1*3}": {}}})", "1:16: expected no more in this key, not 'i'"},
        {R"({"instances": {"a": {"lifs": {"b": {}}, "arp": {"255.255.255.254{+1*3} b": {"mac": "02:00:00:00:00:01"}}}}})",
            "1:49: expected an address that there is, not '255.255.255.254 and 2 further'"},
        {R"({"instances": {"a": {"lifs": {"b{1..2}": {"auxName": "c{+1}"}}}}})",
            "1:54: expected a MAC address where {+N} is, or no {+N}, not 'c'"},
        {R"({"pmacs": {"ff:ff:ff:ff:ff:ff{+1*2}": {}}})", "1:12: expected an address that there is"},
        {R"({"bridges": {"a": {"fdb": {"4294967294{+1*3} 9 02:00:00:00:00:01": {}}}}})",
            "1:28: expected a number of at most 4294967295, not '4294967294 and 2 further'"},
        {R"({"bridges": {"a": {"networks": {"1 2 ": {}}}}})", "1:33: expected no space at the end"},
        {R"({"statistics": {"0": {"billionths": 1000000000}}})", "1:17: expected billionths from 0 to 999999999"},
        {R"({"instances": {"a\u0000b": {}}})", "not 'a\\u0000b'"},
        {"{\"instances\": {\"a\": {\"uuid\": \"u\"}, \"b\": {\"uuid\": \"u\"}}}", "1:36: expected no UUID twice"},
        {R"({"instances": {"a": {"routes": {"10.0.0.0/33": {}}}}})", "1:33: expected an IPv4 address with the length"},
        {R"({"instances": {"a": {"routes": {"10.0.0.1/8": {}}}}})", "1:33: expected no bits outside the mask"},
        {R"({"instances": {"a": {"routes": {"10.0.0.0/255.0.255.0": {}}}}})", "1:33: expected a mask of ones"},
        {R"({"instances": {"a": {"routes": {"10.0.0.0/8": {}}}}})", "1:33: expected a next hop"},
        {R"({"instances": {"a": {"routes": {"10.0.0.0/8": {"nextHops": {"10.0.0.1 b": {}}}}}}})",
            "1:33: expected the name of a LIF of this instance, not 'b'"},
        {R"({"instances": {"a": {"arp": {"10.0.0.1 b": {"mac": "02:00:00:00:00:01"}}}}})",
            "expected the name of a LIF"},
        {R"({"instances": {"a": {"lifs": {"b": {}}, "arp": {"10.0.0.1 b": {"mac": "02"}}}}})",
            "expected a MAC address"},
        {R"({"instances": {"a": {"arp": {"10.0.0.1 -": {"mac": "02:00:00:00:00:01"}}}}})",
            "1:30: expected the name of a LIF of this instance, not ''"},
        {R"({"instances": {"a": {"proxyArp": {"10.0.0.1 -": {}}}}})", "expected the name of a LIF"},
        {R"({"instances": {"a": {"neighbours6": {"fe80::1 -": {"mac": "02:00:00:00:00:01"}}}}})",
            "expected the name of a LIF"},
        {R"({"instances": {"a": {"lifs": {"b": {"kind": "c"}}}}})", "1:45: expected 'routed' or 'bridge', not 'c'"},
        {R"({"instances": {"a": {"lifs": {"b": {"kind": "bridge", "auxName": "c"}}}}})",
            "expected the name of a bridge"},
        {R"({"instances": {"a": {"lifs": {"b": {"enabled": 1}}}}})", "1:48: expected true or false"},
        {R"({"instances": {"a": {"lifs": {"b": {"mac": "02"}}}}})", "1:44: expected a MAC address, not '02'"},
        {R"({"instances": {"a": {"lifs": {"b": {"policyTableRefs": [{}]}}}}})", "expected references to policy tables"},
        {R"({"instances": {"a{1..1001}": {}}})", "1:16: expected at most 1000 entries"},
        {R"({"instances": {"a{i}": {}}})", "1:16: expected {i}, or {+N} at the end"},
        {R"({"instances": {"a{2..1}": {}}})", "1:16: expected a range"},
        {R"({"instances": {"a": {"text": "0123456789abcdefghi"}}})", "expected at most 18 bytes"},
        {R"({"endpoints": {"a": {"bridge": "b"}}})", "1:16: expected the name of a bridge, not 'b'"},
        {R"({"clusters": {"a": {"nodes": {"n{1..101}": {}}}}})", "expected at most 10 clusters, and 100 nodes"},
        {R"({"bfdSessions": {"a": {"count": 2867201}}})", "1:18: expected at most 2867200 BFD sessions"},
        {R"({"connections": {"a": {"age": "b"}}})", "1:31: expected seconds"},
        {R"({"connections": {"a": {"age": 3155760000.5}}})", "1:31: expected seconds, from 0 to 3155760000"},
        {R"({"logLevel": 2.5})", "1:14: expected a number from 0 to 4294967295"},
        {R"({"logLevel": 1e10})", "1:14: expected a number from 0 to 4294967295"},
        {R"({"logLevel": 1e999999999999})", "1:14: expected a number from 0 to 4294967295"},
        {R"({"logLevel": -1e0})", "1:14: expected a number from 0 to 4294967295"},
        {R"({"instances": {"a": {"lifs": {"b": {"raMtu": 5}}}}})", "1:31: expected an raMtu of 0 or at least 1280"},
        {R"({"instances": {"a": {"lifs": {"b": {"ipv6": {"2001:db8::1/129": {}}}}}}})",
            "1:46: expected a prefix of at most 128 bits"},
        {R"({"instances": {"a": {"lifs": {"b": {}}, "routes6": {"::/129 fe80::1 b": {}}}}})",
            "1:53: expected a prefix of at most 128 bits"},
        {R"({"bridges": {"a": {"fdb": {"1 2 02:00:00:00:00:0A": {}, "1 2 02:00:00:00:00:0a": {}}}}})",
            "1:57: expected no entry twice"},
        {R"({"clusters": {"a{1..2}": {}, "a2": {}}})", "1:30: expected no entry twice"},
        {R"({"clusters": {"a": {"nodes": {"n{1..2}": {}, "n2": {}}}}})", "1:46: expected no entry twice"},
        {R"({"bfdSessions": {"a{1..2}": {}, "a2": {}}})", "1:33: expected no entry twice"},
        {R"({"instances": {"10000000-0000-4000-8000-000000000001": {}, "a": {"uuid": "10000000-0000-4000-8000-000000000001"}}})",
            "1:60: expected no UUID twice"},
        {R"({"instances": {"a": {"uuid": "u"}, "u": {}}})", "1:36: expected no name that is the UUID of another"},
        {R"({"rssTargets": {"a": {"table": "00"}}})", "1:32: expected 128 bytes"},
        {R"({"statistics": {"100": {}}})", "1:17: expected the place of a counter from 0 to 99, not '100'"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_THAT(wrong(text), HasSubstr(expected)) << text;
        EXPECT_EQ(save(), all_there_is()) << text;
    }
}

TEST_F(StateFile, OfALenientModuleMayHaveWhatMakesNoSense)
{
    Module lenient({.strictness = Strictness::Lenient, .clock = Clock::Manual});
    const std::string text =
        R"({"instances": {"a": {"lifs": {"b": {"raMtu": 5, "ipv6": {"2001:db8::1/200": {}}}},
            "routes": {"10.0.0.0/255.0.255.0": {"nextHops": {"10.0.0.1 b": {}}}}, "routes6": {"::1/200 :: c": {}}}}})";
    set_state(lenient, json::parse(text));
    const std::string saved = json::print(state_of(lenient));
    set_state(lenient, json::parse(saved));
    EXPECT_EQ(json::print(state_of(lenient)), saved);
    for (const char* senseless : {"10.0.0.0/255.0.255.0", "::1/200 :: c", "2001:db8::1/200", "\"raMtu\": 5"})
        EXPECT_THAT(saved, HasSubstr(senseless));
    // What belongs to a LIF that is not there, no module takes.
    for (const char* homeless : {R"({"instances": {"a": {"arp": {"10.0.0.1 b": {"mac": "?"}}}}})",
             R"({"instances": {"a": {"routes": {"10.0.0.0/8": {"nextHops": {"10.0.0.1 b": {}}}}}}})"})
        EXPECT_THROW(set_state(lenient, json::parse(homeless)), json::Error) << homeless;
}

TEST_F(StateFile, MayWriteNumbersAsAnyJsonDoes)
{
    load(R"({"logLevel": 3.0, "saves": 1e2, "txDispQueueSize": 25.0E+1, "statsLevel": 20e-1,
        "connections": {"a": {"age": 25e-1}, "b": {"age": 0.5e1}}})");
    EXPECT_EQ(printed_at("/logLevel"), "3\n");
    EXPECT_EQ(printed_at("/saves"), "100\n");
    EXPECT_EQ(printed_at("/txDispQueueSize"), "250\n");
    EXPECT_EQ(printed_at("/statsLevel"), "2\n");
    EXPECT_EQ(printed_at("/connections/a/age"), "2.5\n");
    EXPECT_EQ(printed_at("/connections/b/age"), "5\n");
}

TEST_F(StateFile, KeepsForwardingEntriesInLowerCase)
{
    load(R"({"bridges": {"a": {"fdb": {"1 2 02:00:00:00:00:0A": {"value": 3}}}}})");
    EXPECT_EQ(printed_at("/bridges/a/fdb"), "{\n  \"1 2 02:00:00:00:00:0a\": {\n    \"value\": 3\n  }\n}\n");
}

TEST_F(StateFile, GivesInstancesUuidsThatNoOtherHas)
{
    const std::string first = "10000000-0000-4000-8000-000000000001";
    const std::string second = "10000000-0000-4000-8000-000000000002";
    const std::string third = "10000000-0000-4000-8000-000000000003";
    load(R"({"instances": {"unwritten": {}, "written": {"uuid": ")" + first + R"("}, ")" + second + R"(": {}}})");
    EXPECT_EQ(printed_at("/instances/written/uuid"), '"' + first + "\"\n");
    EXPECT_EQ(printed_at("/instances/" + second + "/uuid"), '"' + second + "\"\n");
    EXPECT_EQ(printed_at("/instances/unwritten/uuid"), '"' + third + "\"\n");
    EXPECT_EQ(module.state().find_instance(third)->name, "unwritten");
    const std::string saved = save();
    load(saved);
    EXPECT_EQ(save(), saved);
}

TEST_F(StateFile, OfAWorldOfTwoCenturiesCanBeLoaded)
{
    load(R"({"connections": {"a": {"age": 3155760000}}})");
    EXPECT_TRUE(module.advance(longest_time));
    EXPECT_FALSE(module.advance(Time(1)));
    EXPECT_FALSE(module.advance(Time(-1)));
    const std::string saved = save();
    load(saved);
    EXPECT_EQ(printed_at("/connections/a/age"), "3155760000\n");
}

class Worlds : public StateFile, public testing::WithParamInterface<const char*>
{};

TEST_P(Worlds, AreLoadedAndSavedAgain)
{
    load(read_file(std::string(WORLDS "/") + GetParam() + ".json"));
    const std::string saved = save();
    load(saved);
    EXPECT_EQ(save(), saved);
}

INSTANTIATE_TEST_SUITE_P(Examples, Worlds, testing::Values("office", "host", "trouble"));

TEST_F(StateFile, OfALargeHostFillsItsLists)
{
    load(read_file(WORLDS "/host.json"));
    EXPECT_EQ(reply(protocol::number_of("GetLifs"), "blue").size(), 10000u * 576);
    EXPECT_EQ(reply(protocol::number_of("GetRoutes"), "blue").size(), 8000u * 668);
    const auto sessions = reply(protocol::number_of("GetBridgeBFDSessions"), "");
    ASSERT_EQ(sessions.size(), 2867200u * 39);
    EXPECT_EQ(std::to_integer<int>(sessions[sessions.size() - 39 + 7]), (2867199 & 0xff));
}

// What a patch makes of a document, or what is wrong with it.
std::string patched(const std::string& document, const std::string& operations)
{
    try {
        json::Value value = json::parse(document);
        json::patch(value, json::parse(operations));
        return json::print(value);
    } catch (const json::Error& error) {
        return error.what();
    }
}

std::string printed(const std::string& document)
{
    return json::print(json::parse(document));
}

TEST(Patch, DoesWhatItSays)
{
    const std::string document = R"({"a": [1, 2], "b/c": {"~d": true}})";
    EXPECT_EQ(patched(document, R"([{"op": "add", "path": "/a/1", "value": 3}])"),
        printed(R"({"a": [1, 3, 2], "b/c": {"~d": true}})"));
    EXPECT_EQ(patched(document, R"([{"op": "add", "path": "/a/-", "value": 3}, {"op": "remove", "path": "/b~1c"}])"),
        printed(R"({"a": [1, 2, 3]})"));
    EXPECT_EQ(patched(document, R"([{"op": "replace", "path": "/b~1c/~0d", "value": null}])"),
        printed(R"({"a": [1, 2], "b/c": {"~d": null}})"));
    EXPECT_EQ(patched(document, R"([{"op": "move", "from": "/a/0", "path": "/e"}])"),
        printed(R"({"a": [2], "b/c": {"~d": true}, "e": 1})"));
    EXPECT_EQ(patched(document, R"([{"op": "copy", "from": "/a", "path": "/a/0"}])"),
        printed(R"({"a": [[1, 2], 1, 2], "b/c": {"~d": true}})"));
    EXPECT_EQ(patched(document, R"([{"op": "test", "path": "/b~1c", "value": {"~d": true}}])"), printed(document));
    EXPECT_EQ(patched(document, R"([{"op": "add", "path": "", "value": 1}])"), "1\n");
    EXPECT_EQ(patched("[10, -2, 1.5]", R"([{"op": "test", "path": "", "value": [1e1, -2.0, 15E-1]}])"),
        printed("[10, -2, 1.5]"));
}

TEST(Patch, SaysWhatCannotBeDone)
{
    const auto cases = {
        std::pair(R"({})", "expected an array of operations"),
        std::pair(R"([1])", "1:2: expected an operation"),
        std::pair(R"([{"op": "do", "path": ""}])", "expected add, remove"),
        std::pair(R"([{"op": "remove", "path": "a"}])", "1:27: expected a JSON pointer"),
        std::pair(R"([{"op": "remove", "path": "/~2"}])", "expected a JSON pointer"),
        std::pair(R"([{"op": "remove", "path": "/b"}])", "expected something to be"),
        std::pair(R"([{"op": "remove", "path": "/a/02"}])", "expected something to be"),
        std::pair(R"([{"op": "add", "path": "/a/4", "value": 1}])", "expected a place in the array"),
        std::pair(R"([{"op": "add", "path": "/a/0/b", "value": 1}])", "expected an object or an array"),
        std::pair(R"([{"op": "add", "path": "/c"}])", "expected a member 'value'"),
        std::pair(R"([{"op": "test", "path": "/a/0", "value": 2}])", "1:42: expected this to be at '/a/0', not 1"),
        std::pair(R"([{"op": "move", "from": "/a", "path": "/a/0"}])", "expected no move into itself"),
    };
    for (const auto& [operations, expected] : cases)
        EXPECT_THAT(patched(R"({"a": [1, 2, 3]})", operations), HasSubstr(expected)) << operations;
}

// The examples of its definition.
TEST(Merge, DoesWhatItIsDefinedToDo)
{
    const std::vector<std::array<std::string, 3>> cases {{R"({"a":"b"})", R"({"a":"c"})", R"({"a":"c"})"},
        {R"({"a":"b"})", R"({"b":"c"})", R"({"a":"b","b":"c"})"}, {R"({"a":"b"})", R"({"a":null})", "{}"},
        {R"({"a":"b","b":"c"})", R"({"a":null})", R"({"b":"c"})"}, {R"({"a":["b"]})", R"({"a":"c"})", R"({"a":"c"})"},
        {R"({"a":"c"})", R"({"a":["b"]})", R"({"a":["b"]})"},
        {R"({"a":{"b":"c"}})", R"({"a":{"b":"d","c":null}})", R"({"a":{"b":"d"}})"},
        {R"({"a":[{"b":"c"}]})", R"({"a":[1]})", R"({"a":[1]})"}, {R"(["a","b"])", R"(["c","d"])", R"(["c","d"])"},
        {R"({"a":"b"})", R"(["c"])", R"(["c"])"}, {R"({"a":"foo"})", "null", "null"},
        {R"({"a":"foo"})", R"("bar")", R"("bar")"}, {R"({"e":null})", R"({"a":1})", R"({"e":null,"a":1})"},
        {"[1,2]", R"({"a":"b","c":null})", R"({"a":"b"})"},
        {"{}", R"({"a":{"bb":{"ccc":null}}})", R"({"a":{"bb":{}}})"}};
    for (const auto& [document, changes, expected] : cases) {
        json::Value value = json::parse(document);
        json::merge(value, json::parse(changes));
        EXPECT_EQ(json::print(value), printed(expected)) << document << changes;
    }
}

TEST(Difference, IsThePatchThatMakesOneOfTheOther)
{
    const std::string from = R"({"a": {"b": 1, "c": [1]}, "d/e": 2})";
    const std::string to = R"({"a": {"c": [2]}, "f~": {"g": null}})";
    const json::Value operations = json::difference(json::parse(from), json::parse(to));
    EXPECT_EQ(operations.array()->size(), 4u);
    EXPECT_EQ(patched(from, json::print(operations)), printed(to));
    EXPECT_EQ(json::print(json::difference(json::parse(from), json::parse(from))), "[]\n");
}

TEST(Json, KeepsAnyBytes)
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    bytes += "\xed\xb2\x80 \xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80";
    EXPECT_EQ(*json::parse(json::print({bytes})).text(), bytes);
    EXPECT_EQ(*json::parse(R"("\ud83d\ude00\u00e9\/")").text(), "\xf0\x9f\x98\x80\xc3\xa9/");
}

TEST(Json, RefusesWhatIsNone)
{
    for (const char* text : {"{", "[1,]", "{\"a\"}", "{\"a\":1,}", "01", "1.", "-", "1e", "\"", "\"\\x\"",
             "\"\\u12g4\"", "\"\\ud83d\"", "\"\\ude00\"", "\"\x01\"", "\"\xff\"", "nul", "1 2", "'a'"})
        EXPECT_THROW(json::parse(text), json::Error) << text;
    EXPECT_THROW(json::parse(std::string(100, '[')), json::Error);
}

} // namespace
