#include "results/code_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

struct CodeRow
{
    int code;
    const char* text;
};

const CodeRow codeRows[] = {
    {-1000, "Unknown"},
    {-3, "The clone's running time has exceeded the limit, the clone will be restarted."},
    {-2, "process timed out"},
    {-1, "result file not found"},
    {0, "OK"},
    {1, "Parameter file does not exist"},
    {2, "File_Is_Emty"},
    {3, "UncknownInputFormat"},
    {4, "File does not exist"},
    {5, "Failed to read parameter"},
    {6, "Directory does not exist"},
    {7, "Error opening file"},
    {8, "IOFITS library error"},
    {9, "Failed to connect to the database."},
    {10, "Failed to move file."},
    {11, "Failed to copy file."},
    {12, "Failed to save|load blobtable."},
    {13, "Failed to create StorageConfigBuilder."},
    // The fourth letter is the Cyrillic small letter es, in UTF-8.
    {100, "Suc\xd1\x81"
          "ess."},
    {101, "There is not enough free disk space. The program closed."},
    {102, "The program was closed by the users command."},
    {103, "Failed to download file from S3 server."},
    {104, "Failed to upload file to S3 server."},
    {105, "Error verifying that the frame is archived."},
    {106, "An error occurred while unzipping the frame."},
    {107, "Failed to read the frame, perhaps the frame is broken or under-downloaded."},
    {116, "Service frame (bias), moved to the service folder."},
    {117, "Service frame (dark), moved to the service folder."},
    {118, "Service frame (flat), moved to the service folder."},
    {119, "Error while working with database."},
    {120,
     "Unexpected error - there is no message about the result of the brightness alignment of the frame."},
    {121, "Unexpected error - there is no message about the result of intra-frame processing."},
    {122, "The series is closed"},
    {123, "Error downloading configuration file."},
    {124, "Waiting time less than estimated - interframe processing canceled(as|sat)."},
    {125, "Less than 3 frames have been processed in the series - the start of interframe processing is "
          "canceled(as|sat)."},
    {126, "Unprocessed frames found in the series - interframe processing canceled(as|sat)."},
    {127, "Frames that are being processed are found in the series - the start of interframe processing is "
          "canceled(as|sat)."},
    {128, "No configuration file was found for the series in the database - the start of interframe "
          "processing is canceled."},
    {129, "No configuration file found in the series - interframe processing canceled."},
    {130, "The set number of frames has not been processed in the series - the start of interframe "
          "processing is canceled."},
    {131, "No processed frames found in the series - interframe processing canceled."},
    {132, "No new, successfully processed frames were found in the series - the start of interframe "
          "processing was canceled(as|sat)."},
    {133, "Waiting time less than estimated - interframe processing canceled(vs)."},
    {134, "Less than 3 frames have been processed in the series - the start of interframe processing is "
          "canceled(vs)."},
    {135, "Unprocessed frames found in the series - interframe processing canceled(vs)."},
    {136, "Frames that are being processed are found in the series - the start of interframe processing is "
          "canceled(vs)."},
    {137, "Series reopened - new frame arrived."},
    {138, "Error loading configuration parameters, file missing: "},
    {139, "Error loading configuration file, file broken."},
    {141, "Could not determine configuration file."},
    {142, "These configuration file parameters are out of the range of acceptable values: "},
    {143, "Error uploading - file not exists."},
    {144, "Frame processing is not possible - the series is completed."},
    {145, "Frame processing is not possible, the specified number of frames in a series is exceeded."},
    {146, "Moving object detection canceled. Less than three frames are specified in the series."},
    {147, "The task of searching for moving objects has been started."},
    {148, "The task of creating light curves has been started."},
    {149, "Estimated time to close the series: $"},
    {200, "The service is AirFly, we need more than one frame"},
    {401, "Fit-frame not found"},
    {402, "The programm for fitting not exists"},
    {403, "In the frame header are no data about the astrometric plates"},
    {404, "No measurment from fitting"},
    {405, "The SNR of the measurement is less than the preset"},
    {406, "The measurement coordinates are beyond the frame size"},
    {407, "The programm for astrometry not exists"},
    {408, "In a series of frames there are frames with the same time"},
    {409, "Missing measurement file"},
    {410, "image could not be detected in automatic mode"},
    {600, "Less than three objects (stars) were formed on the frame - the procedure for identifying the "
          "frame with the star catalog is not possible. Possibly poor observation conditions. Or contact the "
          "developer."},
    {601, "Failed to download online star catalog data - the procedure for identifying a frame with a star "
          "catalog is not possible. There may be problems with the Internet connection, or problems with the "
          "Vizier service, or contact the developer."},
    {602, "Failed to identify the frame with the star catalog - a small number of identified stars. Check "
          "the correctness of the data: angular coordinates of the center of the frame, focal length, pixel "
          "size, binning parameter, observation conditions, or contact the developer."},
    {603, "Unacceptable quality of the astrometric solution, further processing of the frame is stopped. "
          "There may be problems with the identification, or poor frame quality, or contact the developer."},
    {604, "Failed to identify the frame using the astrometry.net service. We recommend filling out the frame "
          "header with data: angular coordinates of the center of the frame, focal length, pixel size."},
    {605, "Failed to download DB-star catalog data."},
    {606, "Failed to create photometric plate."},
    {607, "Failed to identify the frame using the astrometry.yes service. We recommend filling out the frame "
          "header with data: angular coordinates of the center of the frame, focal length, pixel size."},
    {608, "Failed to identify the frame using the astap."},
    {807, "Running the module for detecting moving objects is not possible. Less than 3 frames available for "
          "processing."},
    {808, "A series of frames contains frames with the same time."},
    {901, "WRONG_INPUT_FILE"},
    {902, "WRONG_OUTPUT_PATH"},
    {903, "WRONG_MEDIAN_WINDOWS_SIZE"},
    {904, "WRONG_COLOR_VALUE"},
    {905, "WRONG_BIN_VALUE"},
    {906, "WRONG_RATIO_BIN_AND_WINDOWS_SIZE"},
    {907, "WRONG_INPUT_FILE"},
    {908, "WRONG_OUTPUT_PATH_FOR_FITS"},
    {909, "WRONG_OUTPUT_PATH_FOR_CROP"},
    {911, "ERROR_READ_XML"},
    {912, "ERROR_READ_INITFILE"},
    {913, "ERROR_OPEN_INITFILE"},
    {914, "WRONG_INVERT_VALUE"},
    {915, "WRONG_CROP_VALUE"},
    {920, "ERROR_IMAGICK"},
    {930, "ERROR_CREAT_FIT_CROP"},
    {931, "ERROR_CREAT_IMAGE_CROP"},
    {932, "ERROR_WRITE_FIT_CROP"},
    {933, "ERROR_CLOSE_FIT_CROP"},
    {934, "ERROR_CREAT_FIT"},
    {935, "ERROR_CREAT_IMAGE"},
    {936, "ERROR_WRITE_FIT"},
    {937, "ERROR_CLOSE_FIT"},
    {950, "ERROR_OPEN_FIT"},
    {951, "ERROR_SAVE_FIT"},
    {952, "ERROR_READ_FIT"},
    {953, "ERROR_WRITE_HISTORY"},
    {954, "INPUT_FILE_NOT_EXIST"},
    {955, "OUTPUT_DIRECTORY_NOT_EXIST"},
    {956, "BED_SIZE_CROP"},
    {957, "BED_POSITION_CROP"},
    {958, "SIZE_CROP_ZERO"},
    {959, "ERROR_CLOSE_FILE"},
    {968, "ERROR_OPEN_DIR"},
    {969, "ERROR_IMAGEMAGICK_LIB"},
    {970, "ERROR_CREATE_TMP"},
    {971, "ERROR_WRITE_TMP"},
    {972, "ERROR_CLOSE_TMP"},
    {973, "ERROR_REMOVE_TMP"},
    {974, "ERROR_OPEN_TMP"},
    {975, "ERROR_READ_TMP"},
    {980, "ERROR_SYSTEM"},
    {1000, "ERROR_ALLOCAT_MEMORY"},
    {1001, "a small number of signal pixels for calculation of the eccentricity"},
    {1002, "Could not generate a list of long segments, possibly due to the small number of stars. Frame "
           "processing is not possible."},
    {1003, "Insufficient measurements for preliminary estimation of parameters."},
    {1004, "Not enough bright stars on the frame - failed to generate a list of segments."},
    {1005, "Failed to create STEP-frame."},
    {1200, "error while unpacking the file"},
    {1201, "error while packing the file"},
    {1202, "error while receiving frame format"},
    {1203, "the file is a packed frame"},
    {1204, "the file is a not packed frame"},
    {1205, "Error in the input data, check the input/output filenames"},
    {1300, "The start of the creation of the light curves was canceled - in the series less than three "
           "frames were found."},
    {1301, "Task file(s) for creating a light curves not found. Please create a task file."},
    {1302, "Unexpected error, file with light curve not created."},
    {1303, "Failed to generate a list of investigation objects in automatic mode. Make sure there are bright "
           "objects on the frames or contact the developer."},
    {1304, "The mode 'investigation stars is taken from the AAVSO-VSX list' is set, but the data list is "
           "empty. Perhaps there is no data in the AAVSO-VSX catalog, or contact the developer."},
    {1305, "The mode 'comparison stars to take from the AAVSO-VSP list' is set, but the data list is empty. "
           "Perhaps there is no data in the VSP catalog, or contact the developer."},
    {1306, "The 'user set of comparison stars' mode is set, but there are no comparison stars. Please check "
           "the correctness of filling the task file."},
    {1307, "Failed to generate a list of comparison stars in automatic mode. Perhaps there are few bright "
           "stars on the frames, or contact the developer."},
    {1308, "There are no measurement files, further processing of the task-file is not possible. Please "
           "contact the developer."},
    {1309, "Failed to determine a moving object from the trajectory file - please check the correctness of "
           "the task file or contact the developer."},
    {1310, "The result of creating light curves"},
    {1311, "Processing of N new frames is expected to start the creation of light curves"},
    {1312, "Failed to determine radius of aperture."},
    {1400, "Discrepancy in the number of frames for addition and shift parameters"},
    {1401, "Frame size mismatch"},
    {1800, "unknown task type for checkobjects"},
    {1801, "no file with MPC-trajectories was found at the specified path"},
    {1900, "Not enough frames for stacking frames"},
    {1901, "Failed to get a response from Horizon for object: "},
};

} // namespace

TEST(CodeTable, EveryCodeHasItsText)
{
    ASSERT_EQ(std::size(codeRows), 154u);
    for (const CodeRow& row : codeRows) {
        EXPECT_EQ(GetTextCode(row.code), row.text) << row.code;
    }
}

TEST(CodeTable, CodesWithATextAreThoseOfTheRows)
{
    std::vector<int> codes;
    for (const CodeRow& row : codeRows) {
        codes.push_back(row.code);
    }
    EXPECT_EQ(codesWithText(), codes);
}

TEST(CodeTable, NamedCodesAreThoseOfTheirTexts)
{
    EXPECT_EQ(GetTextCode(resultCode::noResultFile), "result file not found");
    EXPECT_EQ(GetTextCode(resultCode::success), "OK");
    EXPECT_EQ(GetTextCode(resultCode::noParameterFile), "Parameter file does not exist");
    EXPECT_EQ(GetTextCode(resultCode::emptyFile), "File_Is_Emty");
    EXPECT_EQ(GetTextCode(resultCode::noFile), "File does not exist");
    EXPECT_EQ(GetTextCode(resultCode::unreadableFile), "Failed to read parameter");
    EXPECT_EQ(GetTextCode(resultCode::noFolder), "Directory does not exist");
    EXPECT_EQ(GetTextCode(resultCode::unopenedFile), "Error opening file");
    EXPECT_EQ(GetTextCode(resultCode::undeterminedConfiguration), "Error downloading configuration file.");
    EXPECT_EQ(GetTextCode(resultCode::noConfiguration),
              "Error loading configuration parameters, file missing: ");
    EXPECT_EQ(GetTextCode(resultCode::brokenConfiguration), "Error loading configuration file, file broken.");
    EXPECT_EQ(GetTextCode(resultCode::settingOutOfRange),
              "These configuration file parameters are out of the range of acceptable values: ");
}

TEST(CodeTable, ConverterHasCodesOfItsOwn)
{
    EXPECT_EQ(resultCode::runFailed, -1);
    EXPECT_EQ(resultCode::unknownOutputFormat, -2);
    EXPECT_EQ(resultCode::outputIsInput, -3);
}

TEST(CodeTable, CodesWithoutARowAreUnknown)
{
    std::map<int, const char*> known;
    for (const CodeRow& row : codeRows) {
        known[row.code] = row.text;
    }
    ASSERT_EQ(known.size(), 154u);
    int unknown = 0;
    for (int code = -3000; code <= 5000; ++code) {
        if (known.count(code) == 0) {
            ++unknown;
            EXPECT_EQ(GetTextCode(code), "UnknownErr") << code;
        }
    }
    EXPECT_EQ(unknown, 8001 - 154);
    EXPECT_EQ(GetTextCode(std::numeric_limits<int>::min()), "UnknownErr");
    EXPECT_EQ(GetTextCode(std::numeric_limits<int>::max()), "UnknownErr");
}

TEST(CodeTable, CodesJumpFrom139To141)
{
    EXPECT_EQ(GetTextCode(139), "Error loading configuration file, file broken.");
    EXPECT_EQ(GetTextCode(140), "UnknownErr");
    EXPECT_EQ(GetTextCode(141), "Could not determine configuration file.");
}

TEST(CodeTable, Codes901And907ShareOneText)
{
    EXPECT_EQ(GetTextCode(901), "WRONG_INPUT_FILE");
    EXPECT_EQ(GetTextCode(907), GetTextCode(901));
}

TEST(CodeTable, FourthLetterOfCode100IsTwoBytes)
{
    const std::string text = GetTextCode(100);
    ASSERT_EQ(text.size(), 9u);
    EXPECT_EQ(text.substr(3, 2), "\xd1\x81");
}

TEST(CodeTable, TextsThatANameOrATimeFollowsEndInABlankOrADollar)
{
    for (const int code : {138, 142, 1901}) {
        EXPECT_EQ(GetTextCode(code).back(), ' ') << code;
    }
    EXPECT_EQ(GetTextCode(149).back(), '$');
}

TEST(GetErrCode, GivesCodeTextAndDescription)
{
    for (const CodeRow& row : codeRows) {
        SCOPED_TRACE(row.code);
        const TFuncRes result = GetErrCode(row.code, "about");
        EXPECT_EQ(result.Code, row.code);
        EXPECT_EQ(result.Comment, row.text);
        EXPECT_EQ(result.Description, "about");
        EXPECT_TRUE(result.Details.empty());
    }
}

TEST(GetErrCode, EmptyDescriptionBecomesTheText)
{
    for (const CodeRow& row : codeRows) {
        SCOPED_TRACE(row.code);
        const TFuncRes result = GetErrCode(row.code, "");
        EXPECT_EQ(result.Code, row.code);
        EXPECT_EQ(result.Comment, row.text);
        EXPECT_EQ(result.Description, row.text);
        EXPECT_TRUE(result.Details.empty());
    }
}

TEST(GetErrCode, SuccessWithoutDescriptionIsOKTwice)
{
    const TFuncRes result = GetErrCode(0, "");
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Comment, "OK");
    EXPECT_EQ(result.Description, "OK");
}

TEST(GetErrCode, FailedOpeningNamesThePath)
{
    const TFuncRes result = GetErrCode(7, "in/night.mea");
    EXPECT_EQ(result.Code, 7);
    EXPECT_EQ(result.Comment, "Error opening file");
    EXPECT_EQ(result.Description, "in/night.mea");
}

TEST(GetErrCode, UnknownCodeIsKept)
{
    const TFuncRes silent = GetErrCode(-4, "");
    EXPECT_EQ(silent.Code, -4);
    EXPECT_EQ(silent.Comment, "UnknownErr");
    EXPECT_EQ(silent.Description, "UnknownErr");
    const TFuncRes told = GetErrCode(140, "about");
    EXPECT_EQ(told.Code, 140);
    EXPECT_EQ(told.Comment, "UnknownErr");
    EXPECT_EQ(told.Description, "about");
}

TEST(GetErrCode, BlankDescriptionIsNotAnEmptyOne)
{
    EXPECT_EQ(GetErrCode(7, " ").Description, " ");
}

TEST(ThrowErrCode, ThrowsTheResultOfTheCode)
{
    for (const CodeRow& row : codeRows) {
        SCOPED_TRACE(row.code);
        for (const std::string& description : {std::string("about"), std::string()}) {
            try {
                throwErrCode(row.code, description);
            } catch (const TavelinException& failure) {
                EXPECT_EQ(failure.getCode(), row.code);
                EXPECT_STREQ(failure.what(), row.text);
                EXPECT_EQ(failure.getComment(), description.empty() ? row.text : description);
            }
        }
    }
}
