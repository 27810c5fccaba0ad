// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/SynonymTable.h"

namespace {

using SynonymTable::Row;

constexpr Row table[] = {
    // what the shop's shelf and the bar call by its maker
    {"chips ahoy|maryland cookie|famous amos", "cookies chocolate chip"},
    {"nilla wafer|nilla", "cookies vanilla wafers"},
    {"nutter butter", "cookies peanut butter sandwich"},
    {"teddy graham|honey maid|honey graham", "cookies graham crackers"},
    {"biscoff|lotus biscuit|speculoos", "gingersnaps"},
    {"twinkie|ding dong|hostess cake|swiss cake roll|mr kipling", "cake snack cakes"},
    {"galaxy|galaxy bar|cadburys|cadbury chocolate|wispa|twirl|crunchie|freddo|yorkie|toffee crisp|creme egg|mini "
     "egg|easter egg|cadbury flake|curly wurly|kinder|kinder bueno|kinder egg|milka|milkybar|double decker|boost "
     "bar|lion bar|hersheys bar|dove chocolate",
        "candies milk chocolate"},
    {"malteser|maltesers|malteasers|whoppers candy", "candies milk chocolate coated"},
    {"mars bar", "candies milky way"},
    {"refresher|love heart|polo|polo mint|tic tac|mentos|werthers|werthers original|jawbreaker", "candies hard"},
    {"percy pig|starburst sweet|swedish fish|sour patch|sour patch kid|fruit gum|midget gem|dolly mixture|jelly bean "
     "sweet",
        "candies gumdrops|jellybeans"},
    {"fruit gusher|gushers|fruit roll up|fruit by the foot|fruit winder|fruit roll", "fruit leather"},
    {"walkers crisp|walkers|lays|lays chip|ruffles|kettle chip|kettle crisp|tayto|mccoys|hula hoop|smiths crisp|red "
     "rock deli|utz",
        "snacks potato chips plain"},
    {"quavers|skips|monster munch|twisties|cheezels|nik nak|wotsits|puffcorn|pirate booty", "snacks puffs cheese|corn"},
    {"tostitos|takis|tortilla crisp|mission chip", "snacks tortilla chips"},
    {"tuc|jacobs cracker|carrs|club crackers|saltine cracker", "crackers"},
    {"frosties", "cereals frosted flakes|corn"},
    {"sugar puffs|honey monster puffs|golden crisp", "cereals puffed wheat"},
    {"crunchy nut|crunchy nut cornflake|crunchy nut corn flake", "cereals honey corn flakes|nut"},
    {"fruit n fibre|fruit fibre|fruit and fibre", "cereals raisin bran"},
    {"ready brek|readybrek|oat so simple|quaker oat|instant porridge|porridge pot|porridge sachet",
        "cereals oats instant"},
    {"alpen|dorset cereal|jordans|country crisp|oat cluster|granola cluster", "cereals muesli|granola"},
    {"all bran|allbran", "kelloggs all bran"},
    {"white claw|hard seltzer|truly|smirnoff ice|wkd|alcopop|hard lemonade|bacardi breezer|mikes hard lemonade",
        "beer light|regular"},
    {"peroni|becks|carling|fosters lager|kronenbourg|tiger beer|modelo|miller|san "
     "miguel|asahi|tennents|coors|busch|pabst|carlsberg|blue moon|newcastle brown|punk ipa|birra moretti|moretti|beck",
        "beer regular"},
    {"irn bru|iron bru|cream soda", "carbonated cream|orange"},
    {"appletiser|j2o|cloudy apple", "apple juice"},
    {"lucozade sport|electrolyte drink|isotonic drink|prime hydration|body armor|sport drink", "sports drink"},
    {"smirnoff|absolut|greygoose|grey goose|titos", "distilled vodka"},
    {"bacardi|captain morgan|malibu|havana club|spiced rum", "distilled rum"},
    {"gordons|bombay sapphire|hendricks|pink gin", "distilled gin"},
    {"jameson|johnnie walker|famous grouse|jim beam|makers mark|jack coke|whiskey coke|whisky coke|jack daniels coke",
        "distilled whiskey"},
    {"petit filous|fromage frais|frubes|frube|yoplait|muller corner|muller light|muller|activia|danone|yogurt "
     "tube|gogurt|go gurt|ski yogurt|onken",
        "yogurt fruit"},
    {"yakult|actimel", "yogurt"},
    {"fage|chobani|oikos|siggis|yeo valley|icelandic yogurt|protein yogurt|high protein yogurt", "yogurt plain"},
    {"lurpak|kerrygold|anchor butter|spreadable butter|land o lakes", "butter salted|light|whipped"},
    {"stork|clover|clover spread|vitalite|bertolli spread|country crock|smart balance|earth balance|pro activ|nuttelex",
        "margarine"},
    {"lactose free milk|lactofree|lactofree milk|lactaid|lactaid milk|a2 milk|organic milk|filtered "
     "milk|fairlife|fairlife milk|cravendale|cow milk|cows milk|fresh milk",
        "milk 3|2|1 milkfat"},
    {"alpro|oatly|almond breeze|oat drink|almond drink|hemp milk|barista oat|oat milk barista|oat barista", "soymilk"},
    {"elmlea|squirty cream|aerosol cream|spray cream|whipped cream|reddi whip", "cream whipped pressurized"},
    {"ambrosia custard|ambrosia|birds custard|instant custard|tinned custard|custard pot", "custard|custards egg"},
    {"cornetto|solero|twister ice cream|nobbly bobbly|drumstick ice cream|viennetta|klondike bar|dairy queen",
        "ice cream|creams"},
    {"calippo|fab lolly|fruit pastille lolly|otter pop|zooper dooper", "frozen novelties ice type"},
    {"ben and jerrys|ben jerrys|ben jerry|haagen dazs|cookie dough ice cream", "ice creams rich|vanilla|chocolate"},
    {"hovis bread|warburtons|kingsmill|wonder bread|toastie bread|toastie loaf|bloomer|tiger bread|farmhouse "
     "loaf|white loaf|best of both|white toast",
        "bread white"},
    {"bisto|gravy granule|instant gravy|bisto gravy|gravy powder", "gravy brown|instant|meat"},
    {"super noodle|supernoodle|maggi noodle|indomie|mi goreng|cup a noodle", "ramen noodle"},
    {"cuppa soup|packet soup|instant soup", "soup dry mix prepared"},
    {"potato waffle|smiley face|potato smiley|alphabite|hash brown patty|potato gem|potato cake frozen",
        "potatoes hashed|puffs"},
    {"aunt bessies", "popovers"},
    {"linda mccartney|linda mccartney sausage|richmond meat free|quorn sausage", "sausage meatless|vegetarian"},
    {"quorn mince|quorn piece|quorn nugget", "meat extender"},
    {"five guy|shake shack|smash burger|in n out|in n out burger|five guys burger|wimpy|sonic burger|jack in the box "
     "burger|quarter pound burger|double burger",
        "hamburger patty"},
    {"mcdouble", "cheeseburger double"},
    {"chicken zinger|zinger burger|mcchicken burger|chicken royale|chick fil a|chick fil a sandwich|popeyes chicken "
     "sandwich",
        "chicken fillet sandwich"},
    {"nandos|peri chicken|peri|piri chicken|costco chicken|supermarket chicken", "chicken cooked roasted"},
    {"popcorn chicken|chicken popper|chicken bite", "chicken nuggets"},
    {"footlong|subway footlong|jersey mikes|subway sandwich|jimmy johns|cold cut sub|italian sub",
        "submarine sandwich"},
    {"chipotle bowl|burrito bowl|chicken burrito bowl|chipotle burrito|chicken burrito", "burrito beans|chicken|beef"},
    {"panda express|chinese takeaway|chinese takeout|chinese food", "restaurant chinese"},
    {"krispy kreme|dunkin donuts", "doughnuts glazed|sugared"},
    {"dunkin donuts coffee|dunkin coffee|dunkin|timmies|keurig|k cup|nespresso|costa coffee|costa|mcdonalds "
     "coffee|starbucks coffee|mccafe|coffee pod",
        "coffee brewed"},
    {"huel|soylent|slimfast|slim fast|complan|meal replacement|meal replacement shake|fortisip|boost drink|ensure "
     "shake|nutri shake",
        "nutritional|meal supplement|plus|drink ensure|supplement"},
    {"pb2|pbfit|powdered peanut butter|peanut butter powder|pb powder", "peanut flour"},
    {"mass gainer|casein|casein protein|protein scoop|pea protein|vegan protein powder|premier protein|muscle "
     "milk|fairlife core power",
        "protein supplement|isolate"},
    {"hamburger helper", "macaroni beef|cheese"},
    {"rice a roni|uncle bens|uncle ben rice|tilda rice|ben original", "rice white long"},
    {"stove top|stove top stuffing|sage onion stuffing|paxo|stuffing mix|stuffing ball|stuffing balls",
        "bread stuffing"},
    {"jiffy cornbread|jiffy corn muffin", "bread cornbread"},
    {"primula|cheese dip stick|boursin", "cheese spread|cream"},
};

} // namespace

std::span<const SynonymTable::Row> SynonymTable::brands()
{
    return table;
}
