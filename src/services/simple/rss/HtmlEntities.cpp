// SPDX-License-Identifier: MIT
#include "services/simple/rss/HtmlEntities.h"

#include <QHash>

#include <array>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// U+00A0 to U+00FF in order.
constexpr std::array latin1Names = {
    "nbsp"_L1,   "iexcl"_L1,  "cent"_L1,   "pound"_L1,  "curren"_L1, "yen"_L1,    "brvbar"_L1,
    "sect"_L1,   "uml"_L1,    "copy"_L1,   "ordf"_L1,   "laquo"_L1,  "not"_L1,    "shy"_L1,
    "reg"_L1,    "macr"_L1,   "deg"_L1,    "plusmn"_L1, "sup2"_L1,   "sup3"_L1,   "acute"_L1,
    "micro"_L1,  "para"_L1,   "middot"_L1, "cedil"_L1,  "sup1"_L1,   "ordm"_L1,   "raquo"_L1,
    "frac14"_L1, "frac12"_L1, "frac34"_L1, "iquest"_L1, "Agrave"_L1, "Aacute"_L1, "Acirc"_L1,
    "Atilde"_L1, "Auml"_L1,   "Aring"_L1,  "AElig"_L1,  "Ccedil"_L1, "Egrave"_L1, "Eacute"_L1,
    "Ecirc"_L1,  "Euml"_L1,   "Igrave"_L1, "Iacute"_L1, "Icirc"_L1,  "Iuml"_L1,   "ETH"_L1,
    "Ntilde"_L1, "Ograve"_L1, "Oacute"_L1, "Ocirc"_L1,  "Otilde"_L1, "Ouml"_L1,   "times"_L1,
    "Oslash"_L1, "Ugrave"_L1, "Uacute"_L1, "Ucirc"_L1,  "Uuml"_L1,   "Yacute"_L1, "THORN"_L1,
    "szlig"_L1,  "agrave"_L1, "aacute"_L1, "acirc"_L1,  "atilde"_L1, "auml"_L1,   "aring"_L1,
    "aelig"_L1,  "ccedil"_L1, "egrave"_L1, "eacute"_L1, "ecirc"_L1,  "euml"_L1,   "igrave"_L1,
    "iacute"_L1, "icirc"_L1,  "iuml"_L1,   "eth"_L1,    "ntilde"_L1, "ograve"_L1, "oacute"_L1,
    "ocirc"_L1,  "otilde"_L1, "ouml"_L1,   "divide"_L1, "oslash"_L1, "ugrave"_L1, "uacute"_L1,
    "ucirc"_L1,  "uuml"_L1,   "yacute"_L1, "thorn"_L1,  "yuml"_L1};

struct Named {
    char16_t character;
    QLatin1StringView name;
};

constexpr std::array others = {
    Named{0x0152, "OElig"_L1},    Named{0x0153, "oelig"_L1},   Named{0x0160, "Scaron"_L1},
    Named{0x0161, "scaron"_L1},   Named{0x0178, "Yuml"_L1},    Named{0x0192, "fnof"_L1},
    Named{0x02C6, "circ"_L1},     Named{0x02DC, "tilde"_L1},   Named{0x0391, "Alpha"_L1},
    Named{0x0392, "Beta"_L1},     Named{0x0393, "Gamma"_L1},   Named{0x0394, "Delta"_L1},
    Named{0x0395, "Epsilon"_L1},  Named{0x0396, "Zeta"_L1},    Named{0x0397, "Eta"_L1},
    Named{0x0398, "Theta"_L1},    Named{0x0399, "Iota"_L1},    Named{0x039A, "Kappa"_L1},
    Named{0x039B, "Lambda"_L1},   Named{0x039C, "Mu"_L1},      Named{0x039D, "Nu"_L1},
    Named{0x039E, "Xi"_L1},       Named{0x039F, "Omicron"_L1}, Named{0x03A0, "Pi"_L1},
    Named{0x03A1, "Rho"_L1},      Named{0x03A3, "Sigma"_L1},   Named{0x03A4, "Tau"_L1},
    Named{0x03A5, "Upsilon"_L1},  Named{0x03A6, "Phi"_L1},     Named{0x03A7, "Chi"_L1},
    Named{0x03A8, "Psi"_L1},      Named{0x03A9, "Omega"_L1},   Named{0x03B1, "alpha"_L1},
    Named{0x03B2, "beta"_L1},     Named{0x03B3, "gamma"_L1},   Named{0x03B4, "delta"_L1},
    Named{0x03B5, "epsilon"_L1},  Named{0x03B6, "zeta"_L1},    Named{0x03B7, "eta"_L1},
    Named{0x03B8, "theta"_L1},    Named{0x03B9, "iota"_L1},    Named{0x03BA, "kappa"_L1},
    Named{0x03BB, "lambda"_L1},   Named{0x03BC, "mu"_L1},      Named{0x03BD, "nu"_L1},
    Named{0x03BE, "xi"_L1},       Named{0x03BF, "omicron"_L1}, Named{0x03C0, "pi"_L1},
    Named{0x03C1, "rho"_L1},      Named{0x03C2, "sigmaf"_L1},  Named{0x03C3, "sigma"_L1},
    Named{0x03C4, "tau"_L1},      Named{0x03C5, "upsilon"_L1}, Named{0x03C6, "phi"_L1},
    Named{0x03C7, "chi"_L1},      Named{0x03C8, "psi"_L1},     Named{0x03C9, "omega"_L1},
    Named{0x03D1, "thetasym"_L1}, Named{0x03D2, "upsih"_L1},   Named{0x03D6, "piv"_L1},
    Named{0x2002, "ensp"_L1},     Named{0x2003, "emsp"_L1},    Named{0x2009, "thinsp"_L1},
    Named{0x200C, "zwnj"_L1},     Named{0x200D, "zwj"_L1},     Named{0x200E, "lrm"_L1},
    Named{0x200F, "rlm"_L1},      Named{0x2013, "ndash"_L1},   Named{0x2014, "mdash"_L1},
    Named{0x2018, "lsquo"_L1},    Named{0x2019, "rsquo"_L1},   Named{0x201A, "sbquo"_L1},
    Named{0x201C, "ldquo"_L1},    Named{0x201D, "rdquo"_L1},   Named{0x201E, "bdquo"_L1},
    Named{0x2020, "dagger"_L1},   Named{0x2021, "Dagger"_L1},  Named{0x2022, "bull"_L1},
    Named{0x2026, "hellip"_L1},   Named{0x2030, "permil"_L1},  Named{0x2032, "prime"_L1},
    Named{0x2033, "Prime"_L1},    Named{0x2039, "lsaquo"_L1},  Named{0x203A, "rsaquo"_L1},
    Named{0x203E, "oline"_L1},    Named{0x2044, "frasl"_L1},   Named{0x20AC, "euro"_L1},
    Named{0x2111, "image"_L1},    Named{0x2118, "weierp"_L1},  Named{0x211C, "real"_L1},
    Named{0x2122, "trade"_L1},    Named{0x2135, "alefsym"_L1}, Named{0x2190, "larr"_L1},
    Named{0x2191, "uarr"_L1},     Named{0x2192, "rarr"_L1},    Named{0x2193, "darr"_L1},
    Named{0x2194, "harr"_L1},     Named{0x21B5, "crarr"_L1},   Named{0x21D0, "lArr"_L1},
    Named{0x21D1, "uArr"_L1},     Named{0x21D2, "rArr"_L1},    Named{0x21D3, "dArr"_L1},
    Named{0x21D4, "hArr"_L1},     Named{0x2200, "forall"_L1},  Named{0x2202, "part"_L1},
    Named{0x2203, "exist"_L1},    Named{0x2205, "empty"_L1},   Named{0x2207, "nabla"_L1},
    Named{0x2208, "isin"_L1},     Named{0x2209, "notin"_L1},   Named{0x220B, "ni"_L1},
    Named{0x220F, "prod"_L1},     Named{0x2211, "sum"_L1},     Named{0x2212, "minus"_L1},
    Named{0x2217, "lowast"_L1},   Named{0x221A, "radic"_L1},   Named{0x221D, "prop"_L1},
    Named{0x221E, "infin"_L1},    Named{0x2220, "ang"_L1},     Named{0x2227, "and"_L1},
    Named{0x2228, "or"_L1},       Named{0x2229, "cap"_L1},     Named{0x222A, "cup"_L1},
    Named{0x222B, "int"_L1},      Named{0x2234, "there4"_L1},  Named{0x223C, "sim"_L1},
    Named{0x2245, "cong"_L1},     Named{0x2248, "asymp"_L1},   Named{0x2260, "ne"_L1},
    Named{0x2261, "equiv"_L1},    Named{0x2264, "le"_L1},      Named{0x2265, "ge"_L1},
    Named{0x2282, "sub"_L1},      Named{0x2283, "sup"_L1},     Named{0x2284, "nsub"_L1},
    Named{0x2286, "sube"_L1},     Named{0x2287, "supe"_L1},    Named{0x2295, "oplus"_L1},
    Named{0x2297, "otimes"_L1},   Named{0x22A5, "perp"_L1},    Named{0x22C5, "sdot"_L1},
    Named{0x2308, "lceil"_L1},    Named{0x2309, "rceil"_L1},   Named{0x230A, "lfloor"_L1},
    Named{0x230B, "rfloor"_L1},   Named{0x2329, "lang"_L1},    Named{0x232A, "rang"_L1},
    Named{0x25CA, "loz"_L1},      Named{0x2660, "spades"_L1},  Named{0x2663, "clubs"_L1},
    Named{0x2665, "hearts"_L1},   Named{0x2666, "diams"_L1}};

QHash<QString, QChar> table() {
    constexpr char16_t firstLatin1 = 0x00A0;
    QHash<QString, QChar> characters;
    char16_t next = firstLatin1;
    for (const QLatin1StringView name : latin1Names) {
        characters.insert(name, QChar(next++));
    }
    for (const Named &entry : others) {
        characters.insert(entry.name, QChar(entry.character));
    }
    return characters;
}

} // namespace

std::optional<QChar> htmlEntity(const QString &name) {
    static const QHash<QString, QChar> characters = table();
    const auto found = characters.find(name);
    return found == characters.end() ? std::nullopt : std::optional(*found);
}

} // namespace zeph
