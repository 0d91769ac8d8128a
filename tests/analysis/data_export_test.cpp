#include "analysis/data_export.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "engine/ExchangeArray.h"
#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_edits.h"
#include "tests/support/slow_export.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

using slow::Spectrum;

/// A dialog that ends with the given options.
class AnsweringPrompt : public ExportPrompt {
public:
    AnsweringPrompt(std::vector<std::string>& log, ExportOptions options) : log_(log) {
        static_cast<ExportOptions&>(*this) = options;
    }
    void RemoteStart() override { log_.emplace_back("RemoteStart"); }

private:
    std::vector<std::string>& log_;
};

class DataExport : public testing::Test {
protected:
    void set(const Spectrum& f) {
        channel.SetFTArray(slow::toExchangeArray(f));
        lab.log.clear();
    }
    /// What an export with these options leaves on the clipboard.
    std::string exported(const ExportOptions& options) {
        AnsweringPrompt prompt(lab.log, options);
        lab.desktop.clipboard.text.reset();
        channel.CopyData(prompt, 0);
        return lab.desktop.clipboard.text.value_or("nothing");
    }
    std::vector<std::string> lines(const ExportOptions& options) {
        std::vector<std::string> found;
        const std::string text = exported(options);
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find("\r\n", at);
            found.push_back(text.substr(at, end - at));
            at = end + 2;
        }
        return found;
    }
    /// The only cell that is not 0 is (u, v).
    static Spectrum point(Long u, Long v, Single re, Single im) {
        Spectrum f(256, 256);
        f(u, v) = {re, im};
        return f;
    }
    static constexpr ExportOptions kDefault{.ok = true, .m = 1, .bi = 1, .bs = 1, .b3 = 0};
    static constexpr const char* kFile = "C:\\Temp\\tmp";

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

/// What of it is exported: quantity, whole numbers, shift, format.
class EveryExport : public DataExport, public testing::WithParamInterface<int> {};

TEST_P(EveryExport, IsThePlainLoopByteForByte) {
    const int n = GetParam();
    const ExportOptions options{.ok = true,
                                .m = static_cast<Integer>(n % 5),
                                .bi = static_cast<Integer>(n / 5 % 2),
                                .bs = static_cast<Integer>(n / 10 % 2),
                                .b3 = static_cast<Integer>(n / 20)};
    lab.show(scene);
    channel.CalculateAll();
    const Spectrum picture = channel.spectrum();
    EXPECT_TRUE(exported(options) == slow::exportText(picture, options));
    // Halves and thousandths, ties of both roundings, and numbers near zero.
    Spectrum ties(256, 256);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v)
            ties(u, v) = {static_cast<Single>(u - 128) / 2.0F + static_cast<Single>(v) / 16.0F,
                          static_cast<Single>((u * 256 + v) % 5001 - 2500) / 4000.0F};
    set(ties);
    EXPECT_TRUE(exported(options) == slow::exportText(ties, options));
}

INSTANTIATE_TEST_SUITE_P(OfASpectrum, EveryExport, testing::Range(0, 40));

TEST_F(DataExport, HoldsTheNumbersOfEverySize) {
    Spectrum f = randomSpectrum(256, 256, 25);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const auto size = std::ldexp(1.0F, static_cast<int>((u * 7 + v) % 250 - 130));
            f(u, v).re *= size;
            f(u, v).im *= size;
        }
    set(f);
    for (Integer m = 0; m < 5; ++m) {
        const ExportOptions options{.ok = true, .m = m, .bi = 0, .bs = 0, .b3 = 0};
        EXPECT_TRUE(exported(options) == slow::exportText(channel.spectrum(), options)) << m;
    }
}

TEST_F(DataExport, OfTheDefaultsHas256LinesOf256WholeNumbers) {
    set(point(0, 0, 3, 4));
    const std::vector<std::string> found = lines(kDefault);
    ASSERT_EQ(found.size(), 256U);
    const std::string zeros = [] {
        std::string text;
        for (int i = 0; i < 256; ++i)
            text += "0\t";
        return text;
    }();
    for (std::size_t i = 0; i < 256; ++i) {
        std::string expected = zeros;
        // The zero frequency is the 129th field of the 129th line.
        if (i == 128)
            expected[256] = '5';
        ASSERT_EQ(found[i], expected) << i;
    }
}

TEST_F(DataExport, WithDecimalsShowsOneToThree) {
    Spectrum f(256, 256);
    f(0, 0) = {2, 0};
    f(0, 1) = {2.1234F, 0};
    f(0, 2) = {-0.0001F, 0};
    f(0, 3) = {-0.5F, 0};
    f(0, 4) = {0.0625F, 0};
    set(f);
    const auto found = lines({.ok = true, .m = 3, .bi = 0, .bs = 0, .b3 = 0});
    EXPECT_TRUE(found[0].starts_with("2.0\t2.123\t0.0\t-0.5\t0.063\t0.0\t")) << found[0];
}

TEST_F(DataExport, OfWholeNumbersRoundsHalvesToEven) {
    Spectrum f(256, 256);
    const Single values[] = {2.5F, 3.5F, -2.5F, -0.4F, -0.6F, 2147483520.0F};
    for (Long v = 0; v < 6; ++v)
        f(0, v).re = values[v];
    set(f);
    const auto found = lines({.ok = true, .m = 3, .bi = 1, .bs = 0, .b3 = 0});
    EXPECT_TRUE(found[0].starts_with("2\t4\t-2\t0\t-1\t2147483520\t0\t")) << found[0];
}

TEST_F(DataExport, InThreeColumnsTellsTheRunningIndicesOfTheShiftedCells) {
    set(point(128, 128, 7, -9));
    const auto found = lines({.ok = true, .m = 0, .bi = 1, .bs = 1, .b3 = 1});
    ASSERT_EQ(found.size(), 65536U);
    EXPECT_EQ(found[0], " 0  0 7, -9\t");
    EXPECT_EQ(found[1], " 0  1 0, 0\t");
    EXPECT_EQ(found[256], " 1  0 0, 0\t");
    EXPECT_EQ(found[65535], " 255  255 0, 0\t");
    set(point(0, 0, 7, -9));
    EXPECT_EQ(lines({.ok = true, .m = 0, .bi = 1, .bs = 1, .b3 = 1})[128 * 256 + 128],
              " 128  128 7, -9\t");
}

TEST_F(DataExport, TellsPhasesFromZeroUpTo360) {
    Spectrum f(256, 256);
    f(0, 0) = {1, 0};
    f(0, 1) = {0, 1};
    f(0, 2) = {-1, 0};
    f(0, 3) = {0, -1};
    f(0, 4) = {1, -1};
    set(f);
    const auto found = lines({.ok = true, .m = 2, .bi = 0, .bs = 0, .b3 = 0});
    EXPECT_TRUE(found[0].starts_with("0.0\t90.0\t180.0\t270.0\t315.0\t0.0\t")) << found[0];
}

TEST_F(DataExport, KnowsNoIntensityFilterOrMask) {
    lab.show(scene);
    channel.CalculateAll();
    const std::string before = exported(kDefault);
    channel.setIntFac(7);
    channel.SetFilterFT(2);
    channel.SetFilterRad(3);
    channel.runFOURN(0);
    EXPECT_EQ(exported(kDefault), before);
}

TEST_F(DataExport, GoesThroughAPrivateFileThatIsGoneAtTheEnd) {
    set(point(0, 0, 1, 0));
    bool privately = false;
    lab.desktop.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        privately = lab.desktop.files.find(kFile)->privately;
        EXPECT_EQ(lab.desktop.files.bytesOf(kFile), lab.desktop.clipboard.text);
    };
    const std::string text = exported(kDefault);
    EXPECT_TRUE(privately);
    EXPECT_FALSE(lab.desktop.files.exists(kFile));
    const std::vector<std::string> expected = {"RemoteStart",
                                               "screen.pendingEvents()",
                                               "environment.variable(TMP)",
                                               "files.writePrivately(C:\\Temp\\tmp)",
                                               "clipboard.clear()",
                                               "files.length(C:\\Temp\\tmp)",
                                               "files.read(C:\\Temp\\tmp)",
                                               "clipboard.setText(" + text + ")",
                                               lab.log.size() > 8 ? lab.log[8] : "",
                                               "files.remove(C:\\Temp\\tmp)"};
    EXPECT_EQ(lab.log, expected);
    EXPECT_EQ(
        lab.desktop.dialogs.messages,
        (std::vector<RecordingDialogs::Message>{{"Data copied to clipboard.", "FT Export",
                                                 MessageIcon::Information, MessageButtons::Ok}}));
}

TEST_F(DataExport, WithoutATemporaryFolderGoesThroughTheRootOfTheDrive) {
    set(point(0, 0, 1, 0));
    lab.desktop.environment.variables["TMP"] = "";
    exported(kDefault);
    EXPECT_EQ(lab.count("files.writePrivately(\\tmp)"), 1);
}

TEST_F(DataExport, OfADialogThatIsNotConfirmedDoesNothing) {
    set(point(0, 0, 1, 0));
    lab.desktop.clipboard.text = "kept";
    ExportOptions closed = kDefault;
    closed.ok = false;
    AnsweringPrompt prompt(lab.log, closed);
    EXPECT_EQ(channel.CopyData(prompt, 0), nullptr);
    EXPECT_EQ(lab.desktop.clipboard.text, "kept");
    EXPECT_EQ(lab.log, (std::vector<std::string>{"RemoteStart", "screen.pendingEvents()"}));
}

TEST_F(DataExport, ChangesNothingInTheChannel) {
    lab.show(scene);
    channel.CalculateAll();
    const Spectrum before = channel.spectrum();
    const Bitmap panel = lab.pb2.Image();
    exported(kDefault);
    EXPECT_EQ(slow::differingCells(channel.spectrum(), before), 0);
    EXPECT_TRUE(lab.pb2.Image() == panel);
}

class FailingExport : public DataExport {
protected:
    /// What an export returns as its failure.
    ErrorNumber failureOf(const ExportOptions& options = kDefault) {
        AnsweringPrompt prompt(lab.log, options);
        const std::exception_ptr failure = channel.CopyData(prompt, 0);
        return failure == nullptr ? ErrorNumber{}
                                  : errorOf([&] { std::rethrow_exception(failure); });
    }
    /// The export opens no dialog, and the clipboard keeps what it had.
    void expectFailure(ErrorNumber number, const ExportOptions& options = kDefault) {
        lab.log.clear();
        lab.desktop.clipboard.text = "kept";
        EXPECT_EQ(failureOf(options), number);
        EXPECT_EQ(lab.desktop.clipboard.text, "kept");
        EXPECT_TRUE(lab.desktop.dialogs.messages.empty());
    }
};

TEST_F(FailingExport, EndsWithoutAFolderForTheFile) {
    lab.desktop.environment.variables["TMP"] = "C:\\Nowhere";
    expectFailure(ErrorNumber::PathNotFound);
    EXPECT_EQ(lab.count("clipboard.clear()"), 0);
}

TEST_F(FailingExport, EndsWhereTheFileCannotBeWritten) {
    lab.desktop.files.makeFolderReadOnly("C:\\Temp");
    expectFailure(ErrorNumber::PathFileAccessError);
    EXPECT_EQ(lab.count("clipboard.clear()"), 0);
}

TEST_F(FailingExport, EndsOnAFullDisk) {
    lab.desktop.files.diskFull = true;
    expectFailure(ErrorNumber::DiskFull);
    EXPECT_FALSE(lab.desktop.files.exists(kFile));
}

TEST_F(FailingExport, EndsAtANumberThatNoLongHoldsAndLeavesNoFile) {
    set(point(255, 255, 2147483648.0F, 0));
    ExportOptions options = kDefault;
    options.m = 3;
    expectFailure(ErrorNumber::Overflow, options);
    EXPECT_FALSE(lab.desktop.files.exists(kFile));
    options.bi = 0;
    EXPECT_NE(exported(options).find("2147483648.0\t"), std::string::npos);
}

TEST_F(FailingExport, EndsAtAFileThatCannotBeReadWithTheClipboardCleared) {
    lab.desktop.files.unreadable.insert(kFile);
    lab.desktop.clipboard.text = "kept";
    EXPECT_EQ(failureOf(), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(lab.count("clipboard.clear()"), 1);
    EXPECT_TRUE(lab.desktop.dialogs.messages.empty());
    EXPECT_TRUE(lab.desktop.files.exists(kFile)) << "no clean-up after a failure";
}

TEST_F(FailingExport, IsNoneWhereOnlyTheFileCannotBeDeleted) {
    set(point(0, 0, 1, 0));
    lab.desktop.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        lab.desktop.files.makeFolderReadOnly("C:\\Temp");
    };
    EXPECT_EQ(failureOf(), ErrorNumber{});
    EXPECT_TRUE(lab.desktop.files.exists(kFile));
}

}  // namespace
}  // namespace quillon
