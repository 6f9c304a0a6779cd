#include "values/Magnitude.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "values/DigitText.h"

namespace BxXmlLib5::Magnitude {

namespace {

/// Numbers of fewer limbs are multiplied and divided limb by limb; longer ones are split.
constexpr std::size_t kSplitSize = 40;

/// Limbs of a divisor beyond those of the quotient that make the quotient right but for one or two.
constexpr std::size_t kGuardLimbs = 2;

constexpr std::uint32_t Limb(std::uint64_t value) {
    return static_cast<std::uint32_t>(value);
}

template <class Char>
Limbs LimbsOf(std::basic_string_view<Char> digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of(Char('0')), digits.size()));
    Limbs limbs = Limbs::Zeros((digits.size() + kLimbDigits - 1) / kLimbDigits);
    for (std::uint32_t& limb : limbs) {
        std::size_t const count = std::min(digits.size(), kLimbDigits);
        limb = LimbOf(digits.substr(digits.size() - count));
        digits.remove_suffix(count);
    }
    return limbs;
}

void MultiplyBy(Limbs& limbs, std::uint64_t factor) {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : limbs) {
        std::uint64_t const product = limb * factor + carry;
        limb = Limb(product % kBase);
        carry = product / kBase;
    }
    if (carry != 0) limbs.PushBack(Limb(carry));
}

/// Gives the remainder.
std::uint64_t DivideBy(Limbs& limbs, std::uint64_t divisor) {
    std::uint64_t remainder = 0;
    for (std::size_t i = limbs.size(); i-- > 0;) {
        std::uint64_t const part = remainder * kBase + limbs[i];
        limbs[i] = Limb(part / divisor);
        remainder = part % divisor;
    }
    Trim(limbs);
    return remainder;
}

/// Adds to as many limbs at a position, and gives the carry.
std::uint32_t AddTo(std::uint32_t* at, Limbs const& addend) {
    std::uint32_t carry = 0;
    for (std::uint32_t const limb : addend) {
        std::uint32_t const sum = *at + limb + carry;
        carry = sum >= kBase ? 1 : 0;
        *at++ = carry != 0 ? Limb(sum - kBase) : sum;
    }
    return carry;
}

/// Adds a multiple to as many limbs at a position, and gives the carry.
std::uint32_t AddMultipleTo(std::uint32_t* at, Limbs const& addend, std::uint64_t factor) {
    std::uint64_t carry = 0;
    for (std::uint32_t const limb : addend) {
        std::uint64_t const sum = *at + limb * factor + carry;
        *at++ = Limb(sum % kBase);
        carry = sum / kBase;
    }
    return Limb(carry);
}

/// Subtracts from as many limbs at a position, and gives the borrow.
std::uint32_t SubtractFrom(std::uint32_t* at, Limbs const& subtrahend) {
    std::uint32_t borrow = 0;
    for (std::uint32_t const limb : subtrahend) {
        std::uint32_t const taken = limb + borrow;
        borrow = *at < taken ? 1 : 0;
        *at = borrow != 0 ? Limb(*at + kBase - taken) : *at - taken;
        ++at;
    }
    return borrow;
}

/// Subtracts a multiple from as many limbs at a position, and gives the borrow.
std::uint32_t SubtractMultipleFrom(std::uint32_t* at, Limbs const& subtrahend, std::uint64_t factor) {
    std::uint64_t borrow = 0;
    for (std::uint32_t const limb : subtrahend) {
        // With so much added, nothing falls below 0, and there is no branch that half the limbs would take.
        std::uint64_t const difference = *at + kBase * kBase - limb * factor - borrow;
        *at++ = Limb(difference % kBase);
        borrow = kBase - difference / kBase;
    }
    return Limb(borrow);
}

/// One limb of a quotient (Knuth, The Art of Computer Programming, 4.3.1, steps D3 to D6). The part of the
/// dividend at this position, one limb longer than the divisor, becomes its remainder.
std::uint32_t TakeQuotientLimb(std::uint32_t* part, Limbs const& divisor) {
    std::size_t const size = divisor.size();
    std::uint64_t const top = divisor[size - 1];
    std::uint64_t const leading = part[size] * kBase + part[size - 1];
    std::uint64_t quotient = leading / top;
    std::uint64_t rest = leading % top;
    while (rest < kBase &&
           (quotient >= kBase || quotient * divisor[size - 2] > rest * kBase + part[size - 2])) {
        --quotient;
        rest += top;
    }
    if (SubtractMultipleFrom(part, divisor, quotient) > part[size]) {
        AddTo(part, divisor);
        --quotient;
    }
    part[size] = 0;
    return Limb(quotient);
}

Limbs MultiplyByLimbs(Limbs const& a, Limbs const& b) {
    Limbs product = Limbs::Zeros(a.size() + b.size());
    for (std::size_t i = 0; i < b.size(); ++i) product[i + a.size()] = AddMultipleTo(&product[i], a, b[i]);
    Trim(product);
    return product;
}

Division DivideByLimbs(Limbs const& dividend, Limbs const& divisor) {
    Limbs rest = dividend;
    if (divisor.size() == 1) {
        std::uint64_t const remainder = DivideBy(rest, divisor[0]);
        return {std::move(rest), FromInteger(remainder)};
    }
    // Both are scaled so that the estimate from the topmost limbs is good (Knuth, 4.3.1, step D1).
    std::uint64_t const scale = kBase / (divisor.back() + 1);
    Limbs scaled = divisor;
    MultiplyBy(scaled, scale);
    MultiplyBy(rest, scale);
    rest.Resize(dividend.size() + 1);
    Limbs quotient = Limbs::Zeros(rest.size() - scaled.size());
    for (std::size_t i = quotient.size(); i-- > 0;) quotient[i] = TakeQuotientLimb(&rest[i], scaled);
    Trim(quotient);
    DivideBy(rest, scale);
    return {std::move(quotient), std::move(rest)};
}

Limbs Low(Limbs const& limbs, std::size_t size) {
    Limbs low = limbs.Part(0, size);
    Trim(low);
    return low;
}

/// A magnitude from the limbs above and below a position.
Limbs Join(Limbs const& high, Limbs low, std::size_t size) {
    low.Resize(size);
    low.Append(high);
    Trim(low);
    return low;
}

/// The upper half of the quotient, then the lower one from what remains.
Division DivideInHalves(Limbs const& dividend, Limbs const& divisor) {
    std::size_t const half = (dividend.size() - divisor.size()) / 2;
    Division const high = Divide(dividend.Part(half), divisor);
    Division low = Divide(Join(high.remainder, dividend.Part(0, half), half), divisor);
    return {Join(high.quotient, std::move(low.quotient), half), std::move(low.remainder)};
}

/// Finds a quotient shorter than the divisor from the topmost limbs of both. It is at most a little too great
/// (Brent and Zimmermann, Modern Computer Arithmetic, algorithm 1.8).
Division DivideByTop(Limbs const& dividend, Limbs const& divisor) {
    std::size_t const cut = 2 * divisor.size() - dividend.size() - kGuardLimbs;
    auto [quotient, rest] = Divide(dividend.Part(cut), divisor.Part(cut));
    rest = Join(rest, dividend.Part(0, cut), cut);
    Limbs const product = Multiply(quotient, Low(divisor, cut));
    while (Compare(rest, product) < 0) {
        rest = Add(rest, divisor);
        quotient = Subtract(quotient, FromInteger(1));
    }
    return {std::move(quotient), Subtract(rest, product)};
}

}  // namespace

Limbs FromLongText(std::u16string_view digits) {
    return LimbsOf(digits);
}

Limbs FromLongText(std::string_view digits) {
    return LimbsOf(digits);
}

void AppendText(wstring& text, Limbs const& limbs, std::size_t width) {
    text.append(std::max(CountDigits(limbs), width), u'0');
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        PutDigits(text.data() + text.size() - i * kLimbDigits, limbs[i], 0);
    }
}

void Trim(Limbs& limbs) {
    std::size_t size = limbs.size();
    while (size > 0 && limbs[size - 1] == 0) --size;
    limbs.Resize(size);
}

std::size_t CountDigits(Limbs const& limbs) {
    if (limbs.empty()) return 0;
    auto const top = std::upper_bound(kPowersOf10.begin(), kPowersOf10.end(), limbs.back());
    return (limbs.size() - 1) * kLimbDigits + static_cast<std::size_t>(top - kPowersOf10.begin());
}

std::size_t CountTrailingZeros(Limbs const& limbs) {
    std::size_t lowest = 0;
    while (limbs[lowest] == 0) ++lowest;
    std::size_t count = lowest * kLimbDigits;
    for (std::uint32_t limb = limbs[lowest]; limb % 10 == 0; limb /= 10) ++count;
    return count;
}

int Compare(Limbs const& a, Limbs const& b) {
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    for (std::size_t i = a.size(); i-- > 0;) {
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
}

Limbs Add(Limbs const& a, Limbs const& b) {
    if (a.size() < b.size()) return Add(b, a);
    Limbs sum;
    sum.Reserve(a.size() + 1);
    sum.Append(a);
    std::uint32_t carry = AddTo(sum.data(), b);
    for (std::size_t i = b.size(); carry != 0 && i < sum.size(); ++i) {
        carry = sum[i] == kBase - 1 ? 1 : 0;
        sum[i] = carry != 0 ? 0 : sum[i] + 1;
    }
    if (carry != 0) sum.PushBack(carry);
    return sum;
}

Limbs Subtract(Limbs const& a, Limbs const& b) {
    Limbs difference = a;
    std::uint32_t borrow = SubtractFrom(difference.data(), b);
    for (std::size_t i = b.size(); borrow != 0 && i < difference.size(); ++i) {
        borrow = difference[i] == 0 ? 1 : 0;
        difference[i] = borrow != 0 ? Limb(kBase - 1) : difference[i] - 1;
    }
    Trim(difference);
    return difference;
}

Limbs Multiply(Limbs const& a, Limbs const& b) {
    if (a.size() < b.size()) return Multiply(b, a);
    if (b.size() < kSplitSize) return MultiplyByLimbs(a, b);
    std::size_t const half = (a.size() + 1) / 2;
    Limbs const aLow = Low(a, half);
    Limbs const aHigh = a.Part(half);
    if (b.size() <= half) return Add(Multiply(aLow, b), Join(Multiply(aHigh, b), {}, half));
    // Karatsuba: three products in place of four.
    Limbs const bLow = Low(b, half);
    Limbs const bHigh = b.Part(half);
    Limbs const low = Multiply(aLow, bLow);
    Limbs const high = Multiply(aHigh, bHigh);
    Limbs const all = Multiply(Add(aLow, aHigh), Add(bLow, bHigh));
    return Add(Join(high, low, 2 * half), Join(Subtract(Subtract(all, low), high), {}, half));
}

Division Divide(Limbs const& dividend, Limbs const& divisor) {
    if (divisor.empty()) throw CBxInvalidValueException(u"ERROR: Overflow in operator/!");
    if (Compare(dividend, divisor) < 0) return {{}, dividend};
    std::size_t const quotientSize = dividend.size() - divisor.size();
    if (std::min(quotientSize, divisor.size()) < kSplitSize) return DivideByLimbs(dividend, divisor);
    return quotientSize + kGuardLimbs < divisor.size() ? DivideByTop(dividend, divisor)
                                                       : DivideInHalves(dividend, divisor);
}

void ScaleUp(Limbs& limbs, std::size_t places) {
    if (limbs.empty() || places == 0) return;
    MultiplyBy(limbs, kPowersOf10[places % kLimbDigits]);
    limbs.InsertLow(places / kLimbDigits);
}

void ScaleDown(Limbs& limbs, std::size_t places) {
    limbs.DropLow(places / kLimbDigits);
    DivideBy(limbs, kPowersOf10[places % kLimbDigits]);
}

Limbs LowDigits(Limbs const& limbs, std::size_t places) {
    std::size_t const whole = places / kLimbDigits;
    Limbs low = limbs.Part(0, whole + 1);
    if (low.size() > whole) low[whole] = Limb(low[whole] % kPowersOf10[places % kLimbDigits]);
    Trim(low);
    return low;
}

}  // namespace BxXmlLib5::Magnitude
