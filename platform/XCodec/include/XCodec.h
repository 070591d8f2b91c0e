// The host's codec for modem text. This build carries the splitter of an AT
// answer's parenthesised groups ("^SYSCFGEX=?" lists its modes, bands and
// acquisition orders in them); the text decoders of the SIM's names join it.
// Stateless: one object may be used from any number of threads.
#ifndef XCODEC_XCODEC_H
#define XCODEC_XCODEC_H

#include <string>
#include <vector>

class CXCodec {
public:
    // Items of one parenthesised group of an AT answer. The list is cleared
    // first. When the text's first "(" is closed by its last ")", that outer
    // pair is removed. The rest is split at commas outside double quotes
    // (empty items are kept); a ")" at the end of an item that closes a "("
    // opened in an earlier item is removed, one that closes a "(" of the same
    // item stays; blanks around an item are dropped. Returns the number of items.
    //   ((80000,"GSM850"),(3FFFFFFF,"All bands"))  ->  (80000 | "GSM850" | (3FFFFFFF | "All bands"
    //   ("00","01","0201")                         ->  "00" | "01" | "0201"
    //   (0-3)                                      ->  0-3
    //   "" and "()"                                ->  no items
    int DecoderGroupString(const std::string& strText, std::vector<std::string>& vctItems);
};

#endif
