#include "receivers/tdm_keys.h"

#include <gtest/gtest.h>

#include <string>

using namespace companion;

TEST(TdmKeys, NumberedOnesEndIn1To5)
{
    for (const char* key :
         {"PARTICIPANT_1", "PARTICIPANT_5", "PATH", "PATH_2", "RECEIVE_FREQ", "RECEIVE_FREQ_3"}) {
        EXPECT_NE(tdmKey(key), nullptr) << key;
    }
    for (const char* key : {"PARTICIPANT_", "PARTICIPANT_0", "PARTICIPANT_6", "PARTICIPANT_12", "path", ""}) {
        EXPECT_EQ(tdmKey(key), nullptr) << key;
    }
}

TEST(TdmKeys, ACommentIsAWordOfItsOwn)
{
    EXPECT_EQ(tdmLineOf(" COMMENT\ta = b ").key, "COMMENT");
    EXPECT_EQ(tdmLineOf(" COMMENT\ta = b ").value, "a = b");
    EXPECT_EQ(tdmLineOf("COMMENT").value, "");
    EXPECT_EQ(tdmLineOf("COMMENTS = b").key, "COMMENTS");
    EXPECT_EQ(tdmLineOf("COMMENTS = b").value, "b");
}

TEST(TdmEpochs, AreRealDaysAndTimes)
{
    for (const char* text :
         {"2025-02-23T12:00:00", "2025-02-23T12:00:00.5Z", "2024-02-29T00:00:00Z", "2025-001T00:00:00",
          "2024-366T23:59:59.999", "2016-12-31T23:59:60", "2016-366T23:59:60.25Z"})
    {
        EXPECT_EQ(faultOfEpoch(text), "") << text;
    }
}

TEST(TdmEpochs, TheWrongPartIsNamed)
{
    struct Row
    {
        const char* text;
        const char* fault;
    };
    const Row rows[] = {{"2025-00-10T00:00:00", "\"2025-00-10\" is no date"},
                        {"2025-13-10T00:00:00", "\"2025-13-10\" is no date"},
                        {"2025-01-00T00:00:00", "\"2025-01-00\" is no date"},
                        {"2025-02-29T00:00:00", "\"2025-02-29\" is no date"},
                        {"2025-01-1OT00:00:00", "\"2025-01-1O\" is no date"},
                        {"2025-000T00:00:00", "\"2025-000\" is no date"},
                        {"2023-366T00:00:00", "\"2023-366\" is no date"},
                        {"2025-0x1T00:00:00", "\"2025-0x1\" is no date"},
                        {"2025-01-01T12:30:60", "\"12:30:60\" is no time"},
                        {"2025-01-01T23:59:61Z", "\"23:59:61\" is no time"},
                        {"2025-01-01T24:00:00", "\"24:00:00\" is no time"},
                        {"2025-01-01T12:60:00", "\"12:60:00\" is no time"},
                        {"2025-01-01T12:00:00.", "\"12:00:00.\" is no time"},
                        {"2025-01-01", "\"\" is no time"}};
    for (const Row& row : rows) {
        EXPECT_EQ(faultOfEpoch(row.text), row.fault);
    }
}

TEST(TdmEpochs, MomentsAreComparedByDayAndSecond)
{
    const TdmMoment moment = tdmMomentOf("2025-02-23T12:00:00.5");
    EXPECT_EQ(moment.day, 60729);
    EXPECT_EQ(moment.seconds, 43200.5);
    EXPECT_EQ(tdmMomentOf("2025-054T12:00:00.500"), moment);
    EXPECT_NE(tdmMomentOf("2025-02-24T12:00:00.5"), moment);
    EXPECT_NE(tdmMomentOf("2025-02-23T12:00:00.6"), moment);
}
