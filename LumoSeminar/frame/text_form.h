#pragma once

#include <string_view>

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

// Default text forms. Numbers carry the decimal separator of the global std::locale, no thousands separator and no
// trailing zeros. Double has up to 15 significant digits, Single up to 7, Money up to four decimals; the exponent
// form ("1E+15") is used only where the plain form needs more than 15 (Single: 7) digits before or behind the
// separator. A moment is "dd.mm.yyyy hh:nn:ss", the time left out at midnight, the date left out on the base date.
Text DefaultText(Int32 value);
Text DefaultText(Double value);
Text DefaultText(Single value);
Text DefaultText(Money value);
Text DefaultText(DateTime value);
/// "True" or "False".
Text DefaultText(Bool value);

// Formats of the statements.
/// "dd.mm.yyyy"
Text DateText(DateTime value);
/// "hh:nn", 24-hour clock; whole minutes, cut.
Text ClockText(DateTime value);
/// "dd.mm.yyyy hh:nn:ss"; whole seconds, cut.
Text MomentText(DateTime value);
/// "yyyymmdd"
Text CompactDateText(DateTime value);

/// A text that comes from people, for a property or a filter that goes into a statement: each single quote doubled, as
/// a statement wants it. The database then holds the text itself, and so does the next load; until then a get gives it
/// doubled. What was read goes back as it stands as well: quote it again before the object is written.
Text Quoted(std::string_view text);

/// Ten digits, padded with zeros: the key of an entry in most lists.
Text KeyText(Int32 key);

// The way back. Blanks around the value are passed over; everything else that is no such value raises type
// mismatch (13). Numbers are read with the decimal separator of the global std::locale, without thousands
// separators; moments as "dd.mm.yyyy", "hh:nn" or both, seconds optional; truth values as "True", "False" in
// any capitals, or as a number.
Double ToDouble(std::string_view text);
Money ToMoney(std::string_view text);
DateTime ToDateTime(std::string_view text);
Bool ToBool(std::string_view text);

/// The decimal separator of the global std::locale.
char DecimalSeparator();

}  // namespace LumoSeminar
