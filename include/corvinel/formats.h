/* The 144 format functions of the registry, one per format.  Each takes one
   request and returns a result code (fmtreq.h); the registry (fmtinfo.h)
   names them and gives their limits.  A function is named after its format
   in lower case, except NLD (`nldfmt`) and NLTIMAP (`nltimeap`). */
#ifndef CORVINEL_FORMATS_H
#define CORVINEL_FORMATS_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* General formats, in registry order. */
CORVINEL_API int32_t nlbest(fmtreq *request);
CORVINEL_API int32_t nldfmt(fmtreq *request);
CORVINEL_API int32_t nldate(fmtreq *request);
CORVINEL_API int32_t nldatel(fmtreq *request);
CORVINEL_API int32_t nldatem(fmtreq *request);
CORVINEL_API int32_t nldatemd(fmtreq *request);
CORVINEL_API int32_t nldatemdl(fmtreq *request);
CORVINEL_API int32_t nldatemdm(fmtreq *request);
CORVINEL_API int32_t nldatemds(fmtreq *request);
CORVINEL_API int32_t nldatemn(fmtreq *request);
CORVINEL_API int32_t nldates(fmtreq *request);
CORVINEL_API int32_t nldatew(fmtreq *request);
CORVINEL_API int32_t nldatewn(fmtreq *request);
CORVINEL_API int32_t nldateym(fmtreq *request);
CORVINEL_API int32_t nldateyml(fmtreq *request);
CORVINEL_API int32_t nldateymm(fmtreq *request);
CORVINEL_API int32_t nldateyms(fmtreq *request);
CORVINEL_API int32_t nldateyq(fmtreq *request);
CORVINEL_API int32_t nldateyql(fmtreq *request);
CORVINEL_API int32_t nldateyqm(fmtreq *request);
CORVINEL_API int32_t nldateyqs(fmtreq *request);
CORVINEL_API int32_t nldateyr(fmtreq *request);
CORVINEL_API int32_t nldateyw(fmtreq *request);
CORVINEL_API int32_t nldatm(fmtreq *request);
CORVINEL_API int32_t nldatmap(fmtreq *request);
CORVINEL_API int32_t nldatmdt(fmtreq *request);
CORVINEL_API int32_t nldatml(fmtreq *request);
CORVINEL_API int32_t nldatmm(fmtreq *request);
CORVINEL_API int32_t nldatmmd(fmtreq *request);
CORVINEL_API int32_t nldatmmdl(fmtreq *request);
CORVINEL_API int32_t nldatmmdm(fmtreq *request);
CORVINEL_API int32_t nldatmmds(fmtreq *request);
CORVINEL_API int32_t nldatmmn(fmtreq *request);
CORVINEL_API int32_t nldatms(fmtreq *request);
CORVINEL_API int32_t nldatmtm(fmtreq *request);
CORVINEL_API int32_t nldatmtz(fmtreq *request);
CORVINEL_API int32_t nldatmw(fmtreq *request);
CORVINEL_API int32_t nldatmwn(fmtreq *request);
CORVINEL_API int32_t nldatmwz(fmtreq *request);
CORVINEL_API int32_t nldatmym(fmtreq *request);
CORVINEL_API int32_t nldatmyml(fmtreq *request);
CORVINEL_API int32_t nldatmymm(fmtreq *request);
CORVINEL_API int32_t nldatmyms(fmtreq *request);
CORVINEL_API int32_t nldatmyq(fmtreq *request);
CORVINEL_API int32_t nldatmyql(fmtreq *request);
CORVINEL_API int32_t nldatmyqm(fmtreq *request);
CORVINEL_API int32_t nldatmyqs(fmtreq *request);
CORVINEL_API int32_t nldatmyr(fmtreq *request);
CORVINEL_API int32_t nldatmyw(fmtreq *request);
CORVINEL_API int32_t nldatmz(fmtreq *request);
CORVINEL_API int32_t nlmny(fmtreq *request);
CORVINEL_API int32_t nlmnyi(fmtreq *request);
CORVINEL_API int32_t nlnum(fmtreq *request);
CORVINEL_API int32_t nlnumi(fmtreq *request);
CORVINEL_API int32_t nlpct(fmtreq *request);
CORVINEL_API int32_t nlpcti(fmtreq *request);
CORVINEL_API int32_t nlpctn(fmtreq *request);
CORVINEL_API int32_t nlpctp(fmtreq *request);
CORVINEL_API int32_t nlpvalue(fmtreq *request);
CORVINEL_API int32_t nlstrmon(fmtreq *request);
CORVINEL_API int32_t nlstrqtr(fmtreq *request);
CORVINEL_API int32_t nlstrwk(fmtreq *request);
CORVINEL_API int32_t nltimeap(fmtreq *request);
CORVINEL_API int32_t nltime(fmtreq *request);

/* Currency-code formats: an amount with the international code (NLMNI<ccy>)
   or the local symbol (NLMNL<ccy>) of one currency. */
CORVINEL_API int32_t nlmniaed(fmtreq *request);
CORVINEL_API int32_t nlmniaud(fmtreq *request);
CORVINEL_API int32_t nlmnibgn(fmtreq *request);
CORVINEL_API int32_t nlmnibrl(fmtreq *request);
CORVINEL_API int32_t nlmnicad(fmtreq *request);
CORVINEL_API int32_t nlmnichf(fmtreq *request);
CORVINEL_API int32_t nlmnicny(fmtreq *request);
CORVINEL_API int32_t nlmniczk(fmtreq *request);
CORVINEL_API int32_t nlmnidkk(fmtreq *request);
CORVINEL_API int32_t nlmnieek(fmtreq *request);
CORVINEL_API int32_t nlmniegp(fmtreq *request);
CORVINEL_API int32_t nlmnieur(fmtreq *request);
CORVINEL_API int32_t nlmnigbp(fmtreq *request);
CORVINEL_API int32_t nlmnihkd(fmtreq *request);
CORVINEL_API int32_t nlmnihrk(fmtreq *request);
CORVINEL_API int32_t nlmnihuf(fmtreq *request);
CORVINEL_API int32_t nlmniidr(fmtreq *request);
CORVINEL_API int32_t nlmniils(fmtreq *request);
CORVINEL_API int32_t nlmniinr(fmtreq *request);
CORVINEL_API int32_t nlmnijpy(fmtreq *request);
CORVINEL_API int32_t nlmnikrw(fmtreq *request);
CORVINEL_API int32_t nlmniltl(fmtreq *request);
CORVINEL_API int32_t nlmnilvl(fmtreq *request);
CORVINEL_API int32_t nlmnimop(fmtreq *request);
CORVINEL_API int32_t nlmnimxn(fmtreq *request);
CORVINEL_API int32_t nlmnimyr(fmtreq *request);
CORVINEL_API int32_t nlmninok(fmtreq *request);
CORVINEL_API int32_t nlmninzd(fmtreq *request);
CORVINEL_API int32_t nlmnipln(fmtreq *request);
CORVINEL_API int32_t nlmnirol(fmtreq *request);
CORVINEL_API int32_t nlmnirub(fmtreq *request);
CORVINEL_API int32_t nlmnirur(fmtreq *request);
CORVINEL_API int32_t nlmnisek(fmtreq *request);
CORVINEL_API int32_t nlmnisgd(fmtreq *request);
CORVINEL_API int32_t nlmniskk(fmtreq *request);
CORVINEL_API int32_t nlmnithb(fmtreq *request);
CORVINEL_API int32_t nlmnitry(fmtreq *request);
CORVINEL_API int32_t nlmnitwd(fmtreq *request);
CORVINEL_API int32_t nlmniusd(fmtreq *request);
CORVINEL_API int32_t nlmnizar(fmtreq *request);
CORVINEL_API int32_t nlmnlaed(fmtreq *request);
CORVINEL_API int32_t nlmnlaud(fmtreq *request);
CORVINEL_API int32_t nlmnlbgn(fmtreq *request);
CORVINEL_API int32_t nlmnlbrl(fmtreq *request);
CORVINEL_API int32_t nlmnlcad(fmtreq *request);
CORVINEL_API int32_t nlmnlchf(fmtreq *request);
CORVINEL_API int32_t nlmnlcny(fmtreq *request);
CORVINEL_API int32_t nlmnlczk(fmtreq *request);
CORVINEL_API int32_t nlmnldkk(fmtreq *request);
CORVINEL_API int32_t nlmnleek(fmtreq *request);
CORVINEL_API int32_t nlmnlegp(fmtreq *request);
CORVINEL_API int32_t nlmnleur(fmtreq *request);
CORVINEL_API int32_t nlmnlgbp(fmtreq *request);
CORVINEL_API int32_t nlmnlhkd(fmtreq *request);
CORVINEL_API int32_t nlmnlhrk(fmtreq *request);
CORVINEL_API int32_t nlmnlhuf(fmtreq *request);
CORVINEL_API int32_t nlmnlidr(fmtreq *request);
CORVINEL_API int32_t nlmnlils(fmtreq *request);
CORVINEL_API int32_t nlmnlinr(fmtreq *request);
CORVINEL_API int32_t nlmnljpy(fmtreq *request);
CORVINEL_API int32_t nlmnlkrw(fmtreq *request);
CORVINEL_API int32_t nlmnlltl(fmtreq *request);
CORVINEL_API int32_t nlmnllvl(fmtreq *request);
CORVINEL_API int32_t nlmnlmop(fmtreq *request);
CORVINEL_API int32_t nlmnlmxn(fmtreq *request);
CORVINEL_API int32_t nlmnlmyr(fmtreq *request);
CORVINEL_API int32_t nlmnlnok(fmtreq *request);
CORVINEL_API int32_t nlmnlnzd(fmtreq *request);
CORVINEL_API int32_t nlmnlpln(fmtreq *request);
CORVINEL_API int32_t nlmnlrol(fmtreq *request);
CORVINEL_API int32_t nlmnlrub(fmtreq *request);
CORVINEL_API int32_t nlmnlrur(fmtreq *request);
CORVINEL_API int32_t nlmnlsek(fmtreq *request);
CORVINEL_API int32_t nlmnlsgd(fmtreq *request);
CORVINEL_API int32_t nlmnlskk(fmtreq *request);
CORVINEL_API int32_t nlmnlthb(fmtreq *request);
CORVINEL_API int32_t nlmnltry(fmtreq *request);
CORVINEL_API int32_t nlmnltwd(fmtreq *request);
CORVINEL_API int32_t nlmnlusd(fmtreq *request);
CORVINEL_API int32_t nlmnlzar(fmtreq *request);

CORVINEL_EXTERN_C_END

#endif
