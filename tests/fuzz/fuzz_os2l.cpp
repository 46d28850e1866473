// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/Os2lAnswers.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

// Fuzz target of Os2lAnswers: any bytes give the same answers however they are cut, and little is
// kept.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

/// In pieces of pPiece bytes.
std::vector<shared::Os2lAnswer> answersIn(const QByteArray& pBytes, int pPiece)
{
    shared::Os2lAnswers parser;
    std::vector<shared::Os2lAnswer> answers;
    for (int i = 0; i < pBytes.size(); i += pPiece) {
        for (const shared::Os2lAnswer& answer : parser.Take(pBytes.mid(i, pPiece)))
            answers.push_back(answer);
        require(parser.getKeptCount() < shared::Os2lAnswers::kLongest, "too much is kept");
    }
    return answers;
}

bool isSame(const shared::Os2lAnswer& pOne, const shared::Os2lAnswer& pOther)
{
    return pOne.name == pOther.name && pOne.page == pOther.page && pOne.isOn == pOther.isOn;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const auto whole = answersIn(bytes, std::max(bytes.size(), 1));
    for (const int piece : {1, 7}) {
        const auto pieces = answersIn(bytes, piece);
        require(std::equal(whole.begin(), whole.end(), pieces.begin(), pieces.end(), isSame),
                "the answers depend on the pieces");
    }
    return 0;
}
