#include "bank/formats.h"

#include <cstddef>
#include <cstdint>

// The name is libFuzzer's. READER is the reader of one format.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bank::Progress none;
    bank::Intake intake(bank::Texts::Played, "1", none);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    bank::READER(bank::textFile("fuzz", bytes, intake.complaints), intake);
    // What was taken in without a complaint can be written.
    if (intake.complaints.empty())
        for (const bank::Format& format : bank::formats)
            (void)format.write(intake.bank.questions);
    return 0;
}
