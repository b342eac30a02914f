#include "platform/utils/code_ranges.h"

#include <string_view>

namespace utils {

namespace {

struct CodeRange
{
    std::string_view market;
    std::string_view from; ///< first code; a code lies in the range only if it has as many digits
    std::string_view to;   ///< last code, inclusive; a range of one code may hold letters
    ECodeKind kind;
};

using K = ECodeKind;

// The exchanges' published code assignments, in rising order; where a range is cut out of a wider one, it
// stands first.
constexpr CodeRange kCodeRanges[] = {
    // Shanghai
    {"SH", "000001", "000999", K::Index},
    {"SH", "009000", "010999", K::Bond}, // government bonds of the first years and on book entry
    {"SH", "018000", "021999", K::Bond}, // policy bank bonds, government bonds on book entry, discount bonds
    {"SH", "100000", "100999", K::ConvertibleBond},
    {"SH", "110000", "111999", K::ConvertibleBond},
    {"SH", "113000", "113999", K::ConvertibleBond},
    {"SH", "118000", "118999", K::ConvertibleBond}, // of companies on the technology board
    {"SH", "120000", "120999", K::Bond},            // enterprise bonds
    {"SH", "122000", "131999", K::Bond}, // company, enterprise, detached and local government bonds
    {"SH", "132000", "132999", K::ConvertibleBond}, // exchangeable into shares that the issuer holds
    {"SH", "133000", "189999", K::Bond},            // company, enterprise, local government, asset-backed
    {"SH", "194000", "199999", K::Bond},            // company, asset-backed
    {"SH", "204000", "204999", K::Repurchase},      // pledged, 1 to 182 days
    {"SH", "230000", "279999", K::Bond},            // local government, company, asset-backed
    {"SH", "500000", "509999", K::Fund},            // closed, listed open and real estate funds
    {"SH", "510000", "518999", K::Fund},            // exchange-traded funds
    {"SH", "519000", "519999", K::Fund},            // open funds
    {"SH", "520000", "563999", K::Fund},            // exchange-traded funds
    {"SH", "588000", "589999", K::Fund},            // exchange-traded funds on the technology board's indices
    {"SH", "600000", "605999", K::MainBoardStock},
    {"SH", "688000", "689999", K::TechnologyBoardStock},
    {"SH", "900900", "900999", K::ForeignStock},
    {"SH", "950000", "950999", K::Index},

    // Shenzhen
    {"SZ", "000001", "004999", K::MainBoardStock},
    {"SZ", "100000", "109999", K::Bond},            // government and local government bonds
    {"SZ", "111000", "116999", K::Bond},            // enterprise, company, private and detached bonds
    {"SZ", "117000", "117999", K::ConvertibleBond}, // private exchangeable
    {"SZ", "118000", "119999", K::Bond},
    {"SZ", "120000", "120999", K::ConvertibleBond}, // exchangeable
    {"SZ", "121000", "122999", K::Bond},            // asset-backed
    {"SZ", "123000", "125999", K::ConvertibleBond}, // growth board, private, first years
    {"SZ", "127000", "129999", K::ConvertibleBond}, // main board
    {"SZ", "131000", "131999", K::Repurchase},
    {"SZ", "133000", "149999", K::Bond}, // private, asset-backed, company
    {"SZ", "150000", "151999", K::Fund}, // parts of split funds
    {"SZ", "158000", "169999", K::Fund}, // exchange-traded and listed open funds
    {"SZ", "180000", "180999", K::Fund}, // real estate
    {"SZ", "184000", "184999", K::Fund}, // closed
    {"SZ", "190000", "199999", K::Bond},
    {"SZ", "200001", "201999", K::ForeignStock},
    {"SZ", "300000", "309999", K::GrowthBoardStock},
    {"SZ", "395000", "395999", K::Index}, // trade statistics
    {"SZ", "399000", "399999", K::Index},
    {"SZ", "524000", "524999", K::Bond}, // company bonds
    {"SZ", "970000", "980999", K::Index},

    // Beijing
    {"BJ", "430000", "439999", K::BeijingStock},
    {"BJ", "810000", "811999", K::ConvertibleBond},
    {"BJ", "821000", "821999", K::Bond},
    {"BJ", "830000", "839999", K::BeijingStock},
    {"BJ", "870000", "879999", K::BeijingStock},
    {"BJ", "899000", "899999", K::Index},
    {"BJ", "920000", "920999", K::BeijingStock},

    // Hong Kong; yuan counters of the same securities begin with an 8
    {"HK", "02800", "02849", K::Fund},
    {"HK", "03000", "03199", K::Fund},
    {"HK", "09000", "09199", K::Fund}, // dollar counters of exchange-traded funds
    {"HK", "82800", "82849", K::Fund},
    {"HK", "83000", "83199", K::Fund},
    {"HK", "00001", "03999", K::HongKongStock},
    {"HK", "04000", "05999", K::Bond}, // exchange fund notes, debt of professional issuers
    {"HK", "06000", "09999", K::HongKongStock},
    {"HK", "80000", "89999", K::HongKongStock},
    {"HK", "HSI", "HSI", K::Index},
    {"HK", "HSCEI", "HSCEI", K::Index},
    {"HK", "HSTECH", "HSTECH", K::Index},

    // Options on stocks and funds
    {"SHOP", "10000001", "19999999", K::StockOption},
    {"SZOP", "90000001", "99999999", K::StockOption},
};

struct ConnectMarket
{
    std::string_view market;
    std::string_view listedOn;
};

constexpr ConnectMarket kConnectMarkets[] = {
    {"SHHK", "HK"}, // Hong Kong shares through Shanghai
    {"SZHK", "HK"}, // Hong Kong shares through Shenzhen
    {"HKSH", "SH"}, // Shanghai shares through Hong Kong
    {"HKSZ", "SZ"}, // Shenzhen shares through Hong Kong
};

std::string_view listingMarket(std::string_view market)
{
    for (const ConnectMarket& connect : kConnectMarkets) {
        if (market == connect.market)
            return connect.listedOn;
    }
    return market;
}

bool holds(const CodeRange& range, std::string_view code)
{
    if (code == range.from)
        return true;
    return code.size() == range.from.size() &&
           code.find_first_not_of("0123456789") == std::string_view::npos && code >= range.from &&
           code <= range.to;
}

} // namespace

ECodeKind codeKind(const std::string& market, const std::string& code)
{
    const std::string_view listedOn = listingMarket(market);
    for (const CodeRange& range : kCodeRanges) {
        if (range.market == listedOn && holds(range, code))
            return range.kind;
    }
    return ECodeKind::None;
}

} // namespace utils
