#pragma once
// Fixed-point currency: a signed 64-bit count of ten-thousandths, the way the
// suite keeps money. Every report sum is made with it so that totals do not
// drift the way binary floating point does.

#include <QString>
#include <compare>
#include <cstdint>

namespace consultas {

class Moneda {
public:
    constexpr Moneda() = default;

    // Rounds half to even at the fourth decimal, as a fixed-point currency
    // conversion does.
    static Moneda DeDoble(double valor);
    static constexpr Moneda DeDiezmilesimos(std::int64_t d) {
        Moneda m;
        m.diezmilesimos_ = d;
        return m;
    }
    // Reads a decimal text ("1234.5", "-0.00005", "1,234.50"); more than four
    // decimals are rounded half to even. Text that is not a number gives 0
    // and, when given, sets *ok to false.
    static Moneda DeTexto(const QString& texto, bool* ok = nullptr);

    constexpr std::int64_t Diezmilesimos() const { return diezmilesimos_; }
    double ADoble() const { return static_cast<double>(diezmilesimos_) / 10000.0; }
    // Plain decimal text with four places ("-12.3400"), for storage and dumps.
    QString ATexto() const;

    constexpr Moneda operator-() const { return DeDiezmilesimos(-diezmilesimos_); }
    constexpr Moneda operator+(Moneda o) const {
        return DeDiezmilesimos(diezmilesimos_ + o.diezmilesimos_);
    }
    constexpr Moneda operator-(Moneda o) const {
        return DeDiezmilesimos(diezmilesimos_ - o.diezmilesimos_);
    }
    Moneda& operator+=(Moneda o) {
        diezmilesimos_ += o.diezmilesimos_;
        return *this;
    }
    Moneda& operator-=(Moneda o) {
        diezmilesimos_ -= o.diezmilesimos_;
        return *this;
    }
    // Products and quotients go through floating point and come back rounded
    // half to even, like any other conversion into currency.
    Moneda operator*(double f) const { return DeDoble(ADoble() * f); }
    Moneda operator/(double f) const { return DeDoble(ADoble() / f); }
    Moneda operator*(Moneda o) const { return DeDoble(ADoble() * o.ADoble()); }

    constexpr auto operator<=>(const Moneda&) const = default;
    constexpr bool operator==(const Moneda&) const = default;

private:
    std::int64_t diezmilesimos_ = 0;
};

} // namespace consultas
