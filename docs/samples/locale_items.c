/* Reading locale items: getORBLocDB copies item `item` of locale `locale`
   (1..136, or 0 for the one ORB_LOCALE names) as stored, with non-ASCII
   characters still written as <Uxxxx> escapes.  corvinel-fmt --items lists
   what each of the 189 codes holds. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "corvinel/locale_db.h"
#include "corvinel/names.h"

int main(void) {
  const int32_t items[] = {4, 5, 6, 28, 153, 156};
  char code[] = "de_DE";
  uint32_t locale = 0;
  if (LocnameToID(code, 5, &locale) != 0) return 1;
  for (size_t i = 0; i < sizeof items / sizeof items[0]; ++i) {
    char text[CORVINEL_LOCALE_TEXT];
    const int32_t length = getORBLocDB(text, (int32_t)sizeof text, items[i], (int32_t)locale);
    if (length < 0) return 1;
    printf("item %d: %.*s\n", (int)items[i], (int)length, text);
  }
  return 0;
}
