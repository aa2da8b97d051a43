// The 40 currencies that have formats of their own (NLMNI<ccy>, NLMNL<ccy>),
// in registry order, with the decimals those formats use by default.
#pragma once

// X(CODE, code, default_decimals) once per currency.  The default decimals
// are deliberate: CZK and TRY default to 4, for example.
#define CORVINEL_CURRENCY_FORMATS(X) \
  X(AED, aed, 3) \
  X(AUD, aud, 2) \
  X(BGN, bgn, 2) \
  X(BRL, brl, 2) \
  X(CAD, cad, 2) \
  X(CHF, chf, 2) \
  X(CNY, cny, 2) \
  X(CZK, czk, 4) \
  X(DKK, dkk, 2) \
  X(EEK, eek, 4) \
  X(EGP, egp, 3) \
  X(EUR, eur, 2) \
  X(GBP, gbp, 2) \
  X(HKD, hkd, 2) \
  X(HRK, hrk, 2) \
  X(HUF, huf, 2) \
  X(IDR, idr, 2) \
  X(ILS, ils, 4) \
  X(INR, inr, 2) \
  X(JPY, jpy, 0) \
  X(KRW, krw, 0) \
  X(LTL, ltl, 4) \
  X(LVL, lvl, 4) \
  X(MOP, mop, 2) \
  X(MXN, mxn, 2) \
  X(MYR, myr, 2) \
  X(NOK, nok, 2) \
  X(NZD, nzd, 2) \
  X(PLN, pln, 2) \
  X(ROL, rol, 4) \
  X(RUB, rub, 2) \
  X(RUR, rur, 2) \
  X(SEK, sek, 2) \
  X(SGD, sgd, 2) \
  X(SKK, skk, 4) \
  X(THB, thb, 2) \
  X(TRY, try, 4) \
  X(TWD, twd, 2) \
  X(USD, usd, 2) \
  X(ZAR, zar, 2)
