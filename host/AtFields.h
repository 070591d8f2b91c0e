// Splits the text of an AT information line into its fields. Pure functions of
// their input; safe from any thread.
#ifndef HOST_ATFIELDS_H
#define HOST_ATFIELDS_H

#include <string>
#include <string_view>
#include <vector>

namespace host {

// Spaces and tabs at both ends removed.
std::string_view TrimBlanks(std::string_view text);

// A field wholly enclosed in one pair of double quotes loses that pair:
// "\"LTE\"" gives "LTE"; "\"a\" \"b\"", "\"open" and "(\"x\")" stay as they are.
std::string_view UnquoteField(std::string_view field);

// The fields of the text after "NAME:". Commas split fields only outside double
// quotes and outside parentheses; blanks around a field (outside its quotes)
// are dropped; a field wholly enclosed in one pair of quotes loses that pair;
// what is inside parentheses stays literal, quotes included.
//   "2, 1, \"0426\", \"F00F\""          -> 2 | 1 | 0426 | F00F
//   "(2,\"T-Mobile\",\"TMO\",\"31026\",0),,(0,1,2,3,4)"
//                                        -> (2,"T-Mobile","TMO","31026",0) | | (0,1,2,3,4)
//   "2,4,5,3,1,,"                        -> 2 | 4 | 5 | 3 | 1 | |
// A text that is empty after trimming has no fields. An unterminated quote or
// parenthesis runs to the end of the text; a stray ')' is kept as a character.
std::vector<std::string> SplitAtFields(std::string_view text);

}  // namespace host

#endif
