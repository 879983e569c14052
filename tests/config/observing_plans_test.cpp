#include "config/observing_plans.h"

#include "support/parameter_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

using namespace tavelinUtils;

namespace {

const std::vector<ReadFile> readFiles = {
    {"LoadAPTScriptSat",
     readMembers<LoadAPTScriptSat, &TAPTScriptSat::planName, &TAPTScriptSat::fovRA, &TAPTScriptSat::fovDE,
                 &TAPTScriptSat::overlap, &TAPTScriptSat::delta_min, &TAPTScriptSat::delta_max,
                 &TAPTScriptSat::longitude, &TAPTScriptSat::latitude, &TAPTScriptSat::altitude,
                 &TAPTScriptSat::settingPoints, &TAPTScriptSat::setPointsList,
                 &TAPTScriptSat::calculationArea, &TAPTScriptSat::motionType, &TAPTScriptSat::frames,
                 &TAPTScriptSat::exposure, &TAPTScriptSat::deltaTime, &TAPTScriptSat::maxPointToFile,
                 &TAPTScriptSat::corners, &TAPTScriptSat::pointsList>,
     "<Plan>\n"
     "    <planName>11</planName>\n"
     "    <fovRA>12</fovRA>\n"
     "    <fovDE>13</fovDE>\n"
     "    <overlap>14</overlap>\n"
     "    <delta_min>15</delta_min>\n"
     "    <delta_max>16</delta_max>\n"
     "    <longitude>17</longitude>\n"
     "    <latitude>18</latitude>\n"
     "    <altitude>19</altitude>\n"
     "    <settingPoints>20</settingPoints>\n"
     "    <setPointsList>21</setPointsList>\n"
     "    <calculationArea>22</calculationArea>\n"
     "    <motionType>23</motionType>\n"
     "    <frames>24</frames>\n"
     "    <exposure>25</exposure>\n"
     "    <deltaTime>26</deltaTime>\n"
     "    <maxPointToFile>27</maxPointToFile>\n"
     "    <corners>28</corners>\n"
     "    <pointsList>29</pointsList>\n"
     "</Plan>\n",
     {{"planName", "11"},
      {"fovRA", "12"},
      {"fovDE", "13"},
      {"overlap", "14"},
      {"delta_min", "15"},
      {"delta_max", "16"},
      {"longitude", "17"},
      {"latitude", "18"},
      {"altitude", "19"},
      {"settingPoints", "20"},
      {"setPointsList", "21"},
      {"calculationArea", "22"},
      {"motionType", "23"},
      {"frames", "24"},
      {"exposure", "25"},
      {"deltaTime", "26"},
      {"maxPointToFile", "27"},
      {"corners", "28"},
      {"pointsList", "29"}}},
    {"LoadAPTScriptGEOTLE",
     readMembers<LoadAPTScriptGEOTLE, &TAPTScriptGEOTLE::planName, &TAPTScriptGEOTLE::fovRA,
                 &TAPTScriptGEOTLE::fovDE, &TAPTScriptGEOTLE::overlap, &TAPTScriptGEOTLE::delta_min,
                 &TAPTScriptGEOTLE::delta_max, &TAPTScriptGEOTLE::longitude, &TAPTScriptGEOTLE::latitude,
                 &TAPTScriptGEOTLE::altitude, &TAPTScriptGEOTLE::settingPoints,
                 &TAPTScriptGEOTLE::setPointsList, &TAPTScriptGEOTLE::calculationArea,
                 &TAPTScriptGEOTLE::motionType, &TAPTScriptGEOTLE::frames, &TAPTScriptGEOTLE::exposure,
                 &TAPTScriptGEOTLE::deltaTime, &TAPTScriptGEOTLE::maxPointToFile, &TAPTScriptGEOTLE::corners,
                 &TAPTScriptGEOTLE::pointsList, &TAPTScriptGEOTLE::gain, &TAPTScriptGEOTLE::slew_time,
                 &TAPTScriptGEOTLE::load_time>,
     "<Plan>\n"
     "    <planName>41</planName>\n"
     "    <fovRA>42</fovRA>\n"
     "    <fovDE>43</fovDE>\n"
     "    <overlap>44</overlap>\n"
     "    <delta_min>45</delta_min>\n"
     "    <delta_max>46</delta_max>\n"
     "    <longitude>47</longitude>\n"
     "    <latitude>48</latitude>\n"
     "    <altitude>49</altitude>\n"
     "    <settingPoints>50</settingPoints>\n"
     "    <setPointsList>51</setPointsList>\n"
     "    <calculationArea>52</calculationArea>\n"
     "    <motionType>53</motionType>\n"
     "    <frames>54</frames>\n"
     "    <exposure>55</exposure>\n"
     "    <deltaTime>56</deltaTime>\n"
     "    <maxPointToFile>57</maxPointToFile>\n"
     "    <corners>58</corners>\n"
     "    <pointsList>59</pointsList>\n"
     "    <gain>60</gain>\n"
     "    <slew_time>61</slew_time>\n"
     "    <load_time>62</load_time>\n"
     "</Plan>\n",
     {{"planName", "41"},       {"fovRA", "42"},         {"fovDE", "43"},         {"overlap", "44"},
      {"delta_min", "45"},      {"delta_max", "46"},     {"longitude", "47"},     {"latitude", "48"},
      {"altitude", "49"},       {"settingPoints", "50"}, {"setPointsList", "51"}, {"calculationArea", "52"},
      {"motionType", "53"},     {"frames", "54"},        {"exposure", "55"},      {"deltaTime", "56"},
      {"maxPointToFile", "57"}, {"corners", "58"},       {"pointsList", "59"},    {"gain", "60"},
      {"slew_time", "61"},      {"load_time", "62"}}},
};

} // namespace

TEST(ObservingPlans, ReadersFillEachMember)
{
    forEach(readFiles, expectEachKey);
}

TEST(ObservingPlans, ReadersTakeAnyNameOfTheFirstElement)
{
    forEach(readFiles, expectAnyNameOfTheFirstElement);
}

TEST(ObservingPlans, MissingAndEmptyKeysLeaveTheirMembers)
{
    forEach(readFiles, expectMissingAndEmptyKeysToLeaveTheirArguments);
}

TEST(ObservingPlans, ReadersLookBelowTheFirstElementOnly)
{
    forEach(readFiles, expectKeysOfTheFirstElementAlone);
}

TEST(ObservingPlans, BlanksAndLettersOfValuesSurvive)
{
    forEach(readFiles, expectBlanksAndLetters);
}

TEST(ObservingPlans, FilesThatDoNotLoadLeaveThePlan)
{
    forEach(readFiles, expectNothingOfAFileThatDoesNotLoad);
}

TEST(ObservingPlans, PlanReadsAsItIsWritten)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<Plan>\n"
                               "  <motionType>static</motionType>\n"
                               "  <pointsList> 10.5 -20.25;\n30.5 40.75 </pointsList>\n"
                               "  <planName>night \xd1\x81 &amp; dawn</planName>\n"
                               "  <gain>100</gain>\n"
                               "</Plan>\n");
    TAPTScriptSat sat;
    sat.frames = "5";
    LoadAPTScriptSat(folder / "a.xml", sat);
    EXPECT_EQ(sat.planName, "night \xd1\x81 & dawn");
    EXPECT_EQ(sat.motionType, "static");
    EXPECT_EQ(sat.pointsList, " 10.5 -20.25;\n30.5 40.75 ");
    EXPECT_EQ(sat.frames, "5");
    EXPECT_EQ(sat.exposure, "");

    TAPTScriptGEOTLE ring;
    ring.slew_time = "3";
    LoadAPTScriptGEOTLE(folder / "a.xml", ring);
    EXPECT_EQ(ring.planName, "night \xd1\x81 & dawn");
    EXPECT_EQ(ring.motionType, "static");
    EXPECT_EQ(ring.gain, "100");
    EXPECT_EQ(ring.slew_time, "3");
    EXPECT_EQ(ring.load_time, "");
}

TEST(ObservingPlans, PlanOfTheRingIsAPlanWithThreeKeysMore)
{
    static_assert(std::is_base_of_v<TAPTScriptSat, TAPTScriptGEOTLE>);
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<Plan><planName>a</planName><gain>1</gain><slew_time>2</slew_time>"
                               "<load_time>3</load_time></Plan>");
    TAPTScriptGEOTLE ring;
    LoadAPTScriptSat(folder / "a.xml", ring);
    EXPECT_EQ(ring.planName, "a");
    EXPECT_EQ(ring.gain, "");
    EXPECT_EQ(ring.slew_time, "");
    EXPECT_EQ(ring.load_time, "");
}
