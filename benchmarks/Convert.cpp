// bxconvert by itself, and beside it a program that many have.

#include "Report.h"

namespace {

using namespace BxBench;

Commands const s_commands({
    {"ConvertText", {BXCONVERT, kTextFile}, 1.3},
    {"ConvertFormatted", {BXCONVERT, "--format", kTextFile}},
    {"ConvertTextToFastInfoset", {BXCONVERT, "--to", "finf", kTextFile}},
    {"ConvertFastInfosetToText", {BXCONVERT, kFastInfosetFile}},
    {"XmllintStream", {"xmllint", "--stream", kTextFile}},
    {"XmllintFormat", {"xmllint", "--format", kTextFile}, 0, false},
});

}  // namespace
