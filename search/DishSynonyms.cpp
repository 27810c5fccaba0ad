// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/SynonymTable.h"

namespace {

using SynonymTable::Row;

constexpr Row table[] = {
    // dishes
    {"rocket salad|arugula salad|baby rocket|rocket leaf|wild rocket|roquette", "arugula"},
    {"shrimp cocktail|prawn cocktail|cocktail shrimp|cocktail prawn|prawn salad|prawn mayo|prawn mayo sandwich|prawn "
     "sandwich|shrimp salad|garlic prawn|shrimp scampi",
        "shrimp cooked"},
    {"sausage roll|sausage biscuit", "biscuit sausage"},
    {"frozen berry|frozen fruit|frozen mixed berry", "strawberries|blueberries|raspberries|blackberries frozen"},
    {"berry", "blueberries|raspberries|strawberries|blackberries"},
    {"cheese on toast|cheese toast", "cheese cheddar"},
    {"meatloaf|meat loaf|beef loaf", "beef ground 80 loaf"},
    {"ham cheese toastie|ham toastie|ham cheese panini|panini|ham cheese melt|croque|grilled ham cheese|toasted ham "
     "cheese|ham cheese croissant sandwich",
        "ham cheese sandwich"},
    {"bacon roll|bacon bap|bacon sandwich|bacon cob|bacon barm", "bacon"},
    {"chip butty|chip sandwich|loaded fries|cheese fries|cheesy chip|chips cheese|chip cheese|chili cheese fries|chips "
     "gravy|chip gravy|chips curry sauce|cheesy fries|skinny fries|salad chip|fries large",
        "potato french fried"},
    {"eggy bread", "french toast"},
    {"cheese omelette|ham omelette|mushroom omelette|ham cheese omelette|western omelette|spanish omelet|denver "
     "omelette|veggie omelette|plain omelette|vegetable omelet|spinach omelette",
        "egg omelet"},
    {"egg soldier|soft egg|runny egg|coddled egg|egg cress|egg cress sandwich|egg mayo sandwich",
        "egg hard boiled|poached"},
    {"cobb salad|chef salad|chefs salad", "salad vegetables tossed|vegetable turkey|egg"},
    {"chicken salad|grilled chicken salad|chicken salad sandwich", "salad vegetable chicken"},
    {"pasta salad|tuna pasta salad|seafood salad", "salad pasta seafood"},
    {"french dip|beef dip|roast beef sub|hot roast beef sandwich", "roast beef sandwich"},
    {"slider|patty melt", "hamburger|cheeseburger"},
    {"brat|brats|beer brat", "bratwurst"},
    {"lil smokies|little smokies|cocktail sausage|cocktail weiner|mini sausage|frankfurt|saveloy|cheerio sausage",
        "sausage|frankfurter smoked|vienna|meat"},
    {"texas toast|garlic baguette|cheesy garlic bread|dough ball|garlic ciabatta", "garlic bread"},
    {"crescent roll|parker house roll|hawaiian roll|brioche bun|kaiser roll|soft roll|crusty roll", "rolls"},
    {"potato gratin|potatoes gratin|dauphinoise|potato dauphinoise|cheesy potato|potato bake", "potatoes au gratin"},
    {"scalloped potato|creamed potato|creamy mash", "potatoes scalloped|mashed"},
    {"lamb chop|lamb loin chop|lamb steak", "lamb loin|leg cooked|broiled"},
    {"roast lamb|lamb roast|leg of lamb|lamb leg|lamb joint", "lamb leg roasted"},
    {"liver onion|liver and onion|liver bacon|lambs liver|calves liver|beef liver", "liver cooked"},
    {"gammon|gammon steak|gammon joint|baked ham|ham steak|ham joint|christmas ham|glazed ham|holiday ham",
        "ham cured cooked|roasted|heated"},
    {"battered cod|cod batter|beer battered fish|fish in batter|breaded cod|breaded haddock|fish goujon|haddock "
     "goujon|battered haddock|chip shop fish|fried fish fillet|fried cod",
        "fish portions sticks"},
    {"sea bass|seabass", "bass"},
    {"tuna steak|ahi tuna|seared tuna", "tuna fresh cooked|bluefin|yellowfin"},
    {"tender stem|tenderstem|tenderstem broccoli|purple sprouting|purple sprouting broccoli|broccoli "
     "floret|broccolini|stem broccoli|broccoli crown",
        "broccoli"},
    {"sugar snap|sugar snaps|sugarsnap", "peas edible podded"},
    {"beansprout|bean shoot|beanshoot", "mung beans sprouted"},
    {"mixed pepper|romano pepper|pointed pepper|pepper strip|pepper slice|stir fry pepper", "peppers sweet"},
    {"red grape|green grape|white grape|black grape|seedless grape|grape red|grape green", "grapes red green"},
    {"melon|gala melon|galia melon|melon slice|melon chunk", "melons cantaloupe|honeydew"},
    {"curry sauce|curry paste|katsu sauce|katsu curry sauce|chip shop curry sauce", "curry powder"},
    {"mint sauce|fresh mint", "spearmint|peppermint"},
    {"tartare sauce|tartare", "sauce tartar"},
    {"marie rose|marie rose sauce|seafood sauce|cocktail sauce|burger sauce|big mac sauce", "thousand island"},
    {"aioli|garlic mayo|light mayo|hellmanns|kewpie|japanese mayo|lighter mayo|extra light mayo", "mayonnaise"},
    {"red sauce|tomato ketchup|tommy k|ketchup sachet|heinz ketchup", "catsup"},
    {"houmous|humous|humus|hommus|hummous|houmus", "hummus"},
    {"sweet chilli|sweet chilli sauce|sweet chili sauce|peri sauce|piri|piri sauce|buffalo sauce|cholula", "sauce hot"},
    {"caesar", "dressing caesar"},
    {"caesar salad", "dressing caesar"},
    {"caesar salad|side caesar|chicken caesar|chicken caesar salad|caesar chicken|caesar salad chicken",
        "mcdonalds caesar salad"},
    {"italian dressing", "dressing italian"},
    // drinks
    {"white coffee sugar|black coffee sugar|coffee milk sugar|coffee cream sugar|milky coffee|coffee with "
     "cream|coffee with sugar|coffee with milk sugar|coffee oat milk|coffee almond milk|coffee splash milk",
        "coffee brewed"},
    {"vanilla latte|caramel latte|oat latte|oat milk latte|soy latte|pumpkin spice latte|psl|caramel macchiato|iced "
     "caramel macchiato|gingerbread latte|hazelnut latte|almond latte|coconut latte|skinny cappuccino|oat flat "
     "white|oat cappuccino|magic coffee|double shot|iced mocha|iced cappuccino|chai latte coffee|vanilla "
     "coffee|affogato|irish coffee",
        "coffee brewed"},
    {"tea sugar|tea milk sugar|tea with honey|yorkshire tea|ceylon tea|assam|darjeeling|decaf tea|english tea|rosie "
     "lee",
        "tea black brewed"},
    {"bubble tea|boba|boba tea|milk tea|thai tea|iced green tea|arizona tea|nestea", "tea instant|ready"},
    {"cab sav|cab sauv|cabernet", "wine red cabernet"},
    {"sauv blanc|savvy b|marlborough sauvignon|sav blanc", "wine white sauvignon blanc"},
    {"vodka cranberry|vodka redbull|vodka red bull|vodka soda lime|vodka orange|screwdriver|moscow mule|vodka "
     "shot|vodka cran|bloody mary|cosmo|espresso martini|white russian",
        "distilled vodka"},
    {"old fashioned|whiskey soda|scotch soda|whisky soda|jack and coke|hot toddy|whisky shot|single malt",
        "distilled whiskey"},
    {"rum punch|dark stormy|long island iced tea|long island|cuba "
     "libre|pimms|pimm|jagerbomb|jager|jagermeister|singapore sling|caipirinha|paloma|tequila shot|tequila soda",
        "alcoholic distilled all"},
    {"cider|strongbow|magners|bulmers|kopparberg|pear cider|dry cider|fruit cider|angry orchard|rekorderlig",
        "beer regular|light"},
    {"fizzy orange|orange fizz|orange squash fizzy|diet fanta orange", "carbonated orange"},
    {"babyccino|warm milk|hot milk|steamed milk", "milk whole 3"},
    {"tap water|hot water|ice water|iced water|lemon water|evian|volvic|buxton|fiji water|smart water|filtered water",
        "water tap|bottled"},
    // puddings and bakes
    {"flapjack", "granola bars"},
    {"chocolate muffin|chocolate chip muffin|double chocolate muffin|lemon muffin|lemon poppy seed muffin|poppy seed "
     "muffin|cranberry muffin|morning glory muffin|carrot muffin|banana muffin|raspberry muffin",
        "muffins|muffin blueberry|plain|oat"},
    {"iced bun|finger bun|chelsea bun|belgian bun|cinnamon bun|cinnabon|cinnamon scroll|sticky bun|honey bun|iced "
     "finger|coffee scroll",
        "sweet rolls|buns cinnamon"},
    {"brownie bite|chocolate brownie|fudge brownie|blondie|rocky road", "brownies|brownie"},
    {"banana loaf|banana cake|banana bread slice", "bread banana"},
    {"lemon drizzle|lemon drizzle cake|madeira cake|loaf cake|lemon cake|vanilla cake|victoria "
     "sandwich|battenberg|birthday cake slice",
        "cake pound|yellow|sponge"},
    {"red velvet|red velvet cake|chocolate fudge cake|chocolate cake slice|mud cake|devils food cake|choc cake|lava "
     "cake|molten chocolate cake|death by chocolate",
        "cake chocolate"},
    {"jelly ice cream|jelly and ice cream|jelly pot|jello cup|jell o cup|jelly cup", "gelatin desserts"},
    {"banana custard|rhubarb custard|custard pie|custard slice|vanilla slice|portuguese tart|pastel de nata",
        "egg custard|custards"},
    {"chocolate mousse|choc mousse|choc pot|chocolate pot|chocolate dessert|chocolate pudding pot|snack pack|pudding "
     "cup|chocolate pudding cup",
        "puddings|pudding chocolate"},
    {"rice pud|ambrosia rice|muller rice|tinned rice pudding|creamed rice", "puddings rice"},
    {"pancake stack|short stack|american pancake|pancake lemon sugar|scotch pancake|drop scone|silver dollar "
     "pancake|protein pancake|shrove pancake",
        "pancakes plain"},
    {"popcorn salted|salted popcorn|microwave popcorn|cinema popcorn|movie popcorn|sweet popcorn|toffee popcorn|skinny "
     "pop|smartfood",
        "snacks popcorn"},
    {"salted peanut|dry roasted peanut|roasted peanut|honey roasted peanut|beer nut|monkey nut|peanut salted",
        "peanuts roasted"},
    {"salt vinegar crisp|salt vinegar chip|ready salted|ready salted crisp|prawn cocktail crisp|smoky bacon "
     "crisp|chicken crisp|ketchup chip|all dressed chip|dill pickle chip|salt vinegar potato chip|salted crisp",
        "snacks potato chips plain salted"},
    // breakfasts and lunches
    {"full breakfast|cooked breakfast|irish breakfast|scottish breakfast|all day breakfast|breakfast plate|big "
     "breakfast|eggs and bacon|bacon and egg|bacon egg|egg bacon",
        "egg fried|scrambled whole"},
    {"toast jam|jam on toast|toast butter jam|toast marmalade|marmalade on toast|toast nutella|nutella on toast|toast "
     "marmite|marmite on toast|vegemite toast|vegemite on toast|honey on toast|toast honey|buttered toast|toast "
     "butter|toast slice|peanut butter toast|toast peanut butter|peanut butter on toast|pb toast",
        "bread toasted"},
    {"toast soldier|dry toast", "bread white toasted"},
    {"avo toast egg|smashed avo|smashed avo toast|smashed avocado|avo on toast|avocado smash", "avocados raw"},
    {"yogurt granola|granola yogurt|yogurt bowl|yogurt and fruit|yogurt berry|fruit yogurt granola|parfait|yogurt "
     "parfait",
        "yogurt fruit|parfait"},
    {"acai bowl|smoothie bowl|green smoothie|berry smoothie|strawberry smoothie|banana smoothie|mango "
     "smoothie|innocent smoothie|naked juice",
        "juice strawberry|orange banana"},
    {"protein ball|energy ball|date bar|nakd bar|nakd|larabar|rxbar|kind bar|nature valley bar|special k bar|alpen "
     "bar|tracker bar|flapjack bar|oat bar",
        "granola bars|bar"},
    {"soup and sandwich|soup bread|soup roll", "soup vegetable"},
    {"leek potato soup|potato leek soup|leek soup", "soup leek|potato"},
    {"butternut squash soup|carrot soup|carrot coriander soup|roasted pepper soup|root vegetable soup|squash "
     "soup|minestrone|scotch broth|cabbage soup",
        "soup vegetable|minestrone"},
    {"broccoli stilton soup|broccoli cheddar soup|broccoli cheese soup|broccoli soup|cream of broccoli",
        "soup broccoli"},
    // other people's kitchens
    {"pho|beef pho|beef noodle soup|ramen soup beef", "soup beef noodle"},
    {"chicken pho|chicken noodle bowl|jewish penicillin|matzo soup", "soup chicken noodle"},
    {"elote|street corn|mexican street corn|esquites|corn rib|corn cobette", "corn sweet yellow"},
    {"bibimbap|donburi|bento|bento box|rice bowl|onigiri|jollof|jollof rice|arancini|egg rice|rice dish|coconut "
     "rice|dirty rice|spanish rice|mexican rice|cilantro lime rice|boiled rice|sticky rice|rice ball",
        "rice white cooked"},
    {"tom yum|tom kha|laksa|tom yum soup|hot sour", "soup hot sour|shrimp|chicken"},
    {"banh mi|po boy|muffuletta|grinder|torta", "submarine sandwich"},
    {"birria|birria taco|street taco|carnitas taco|barbacoa taco|beef taco|soft taco|hard taco|crunchy taco",
        "taco beef"},
    {"chicken taco|fish taco|shrimp taco", "taco chicken|cheese"},
    {"chilaquiles|loaded nacho|nacho cheese|nacho plate", "nachos cheese"},
    {"feijoada|frijoles negros|black bean dip|black bean stew", "black beans cooked|canned"},
    {"bean dip|refried bean dip|frijoles", "refried beans"},
    {"katsu curry|chicken katsu|chicken katsu curry|karaage|chicken schnitzel burger|southern fried chicken|fried "
     "chicken",
        "chicken fried"},
    {"tonkatsu|pork schnitzel|pork katsu|breaded pork|pork cutlet", "pork loin cooked"},
    {"char siu|roast pork belly|pork belly|crispy pork", "pork belly|loin"},
    {"peking duck|aromatic duck|duck pancake|roast duck|duck leg|duck confit|confit duck", "duck meat cooked"},
    {"mapo tofu|tofu scramble|scrambled tofu|fried tofu|crispy tofu|tofu stir fry|tofu puff|agedashi tofu|baked tofu",
        "tofu"},
    {"yakisoba|chow fun|chinese noodle|stir fry noodle|stir fried noodle|singapore noodle|mee goreng|hakka noodle",
        "noodles chinese|rice|egg"},
    {"pad see ew|drunken noodle|pancit|bun cha|rice stick|glass noodle|cellophane noodle|japchae",
        "noodles rice|cellophane"},
    {"lumpia|imperial roll|summer roll|rice paper roll|vietnamese roll|prawn roll", "egg rolls"},
    {"wonton broth|wonton soup", "wonton"},
    {"chicken adobo|adobo chicken|jerk chicken|chicken tagine|chicken stew|coronation chicken|chicken "
     "paprikash|chicken chasseur|chicken provencal|chicken cacciatora|thai chicken|chicken basquaise|green thai "
     "curry|green curry|thai green curry|thai red curry|red curry|thai curry|massaman|panang|panang curry|yellow "
     "curry|japanese curry|curry|chip shop curry",
        "chicken meat cooked|stewed"},
    {"pav bhaji|dum aloo|patatas bravas|potato curry|sag aloo|fried potato|pan fried potato|breakfast potato|crispy "
     "potato",
        "potatoes hashed|boiled|fried"},
    {"gulab jamun|jalebi|dough balls sweet", "doughnuts"},
    {"kheer|arroz con leche|milk rice", "rice pudding|puddings"},
    {"bouillabaisse|cioppino|fish soup|fisherman stew", "soup clam|fish|shrimp"},
    {"gazpacho|bortsch|beetroot soup", "soup gazpacho|tomato|vegetable"},
    {"halloumi fries|saganaki|fried cheese|grilled halloumi", "cheese queso|mozzarella"},
    {"loukaniko|merguez|boerewors|cumberland sausage|lincolnshire sausage|pork banger|bratwurst "
     "bun|chipolata|chipolatas|irish sausage|sausage and egg",
        "pork sausage"},
    {"injera|arepas|lavash|lefse|barbari|pide|khobz|soft flatbread", "bread pita"},
    {"uncrustable|peanut butter banana|peanut butter honey|peanut butter jelly sandwich|pb banana", "peanut butter"},
    {"lunchable|cheese crackers|cheese and crackers|crackers brie", "crackers cheese"},
    // what lies between two slices
    {"turkey club|turkey panini|turkey bagel|turkey roll|turkey hoagie|turkey blt|turkey ciabatta|turkey "
     "baguette|turkey toastie|club sandwich turkey|turkey melt",
        "turkey breast sliced|luncheon"},
    {"chicken wrap|chicken caesar wrap|chicken panini|chicken baguette|chicken roll|chicken bagel|chicken "
     "toastie|chicken ciabatta|chicken pita|chicken bap|chicken blt|chicken club|grilled chicken sandwich|grilled "
     "chicken wrap|buffalo chicken wrap|buffalo chicken sandwich",
        "chicken fillet|filet|grilled sandwich"},
    {"tuna wrap|tuna baguette|tuna sub|tuna bagel|tuna panini|tuna mayo baguette|tuna cucumber sandwich|tuna "
     "crunch|tuna jacket|tuna sweetcorn",
        "tuna salad"},
    {"ham roll|ham baguette|ham wrap|ham bap|ham salad sandwich|ham sub|ham bagel|ham salad roll|ham mustard "
     "sandwich|ham pickle sandwich",
        "ham cheese sandwich"},
    {"cheese baguette|cheese bap|cheese salad sandwich|cheese pickle sandwich|cheese tomato sandwich|cheese tomato "
     "toastie|cheese onion toastie|cheese bagel|cheese savoury sandwich",
        "cheese cheddar"},
    {"steak baguette|steak wrap|steak bake|beef baguette|beef sandwich|roast beef roll|steak slice",
        "roast beef sandwich"},
    // without, and with
    {"coffee no sugar|black coffee no sugar|coffee no milk|coffee unsweetened|latte no sugar|unsweetened coffee|coffee "
     "sugar free|coffee without sugar|black coffee without sugar|unsweetened latte",
        "coffee brewed"},
    {"tea no sugar|tea no milk|black tea|tea without sugar|unsweetened tea hot|plain tea|tea unsweetened hot",
        "tea black brewed"},
    {"bread butter|bread and butter|bread with butter|slice bread butter|bread jam|bread honey|bread nutella|bread "
     "marmite",
        "bread white commercially prepared"},
    {"fruit cup|fruit pot|fruit bowl|tinned fruit|canned fruit", "fruit cocktail|salad"},
    {"zoodle|courgetti|zucchini noodle|courgette noodle|courgette spaghetti|spiralized zucchini", "zucchini"},
    {"hot dog with bun|hot dog in bun|hotdog with bun|hotdog in bun|chili dog|hot dog mustard|hot dog ketchup",
        "hotdog"},
    {"pbj sandwich|pb j sandwich|peanut butter sandwich", "peanut butter smooth|chunk"},
    {"fruit scone|cheese scone|plain scone|scone jam|scone jam cream|cream tea|sultana scone|scone butter",
        "biscuits plain"},
    {"cold brew black|long black no sugar|espresso no sugar", "coffee brewed espresso|grounds"},
    // what is eaten in one place only
    {"instant ramen|ramen egg|ramen with egg|noodle pot|noodle cup|packet noodle|2 minute noodles|ramen packet|cup "
     "ramen",
        "ramen noodle"},
    {"bacon egg roll|bacon and egg roll|egg bacon roll|bacon egg bap|egg bacon sandwich|bacon egg sandwich|egg "
     "bap|fried egg roll|egg roll bacon|breakfast roll|breakfast sandwich|breakfast bap|breakfast muffin|breakfast "
     "burger",
        "egg cheese bacon|sandwich"},
    {"party pie|four twenty pie|meat pie sauce|mince pie beef|scotch pie|bridie|steak mince pie|chicken leek pie|beef "
     "pasty|pasty",
        "beef|chicken pot pie"},
    {"dim sim|dim sims|chiko roll|spring roll vegetable|cheeseburger spring roll", "egg rolls"},
    {"crumbed|panko", "breaded"},
    {"crumbed cutlet|crumbed lamb cutlet|lamb cutlet crumbed|crumbed lamb", "lamb rib cooked"},
    {"rissole|beef rissole|hamburger steak|bunless burger|naked burger|kofte|frikadelle|bobotie|savoury mince|mince "
     "and potato|mince and tattie|keema",
        "ground beef cooked|patty|patties"},
    {"damper|wheaten bread|soda farl|irish soda bread|soda bread|batch loaf", "bread irish|white"},
    {"musk stick|fantales|minties|pineapple lump|clinkers|saltwater taffy|toffee|butterscotch|humbug|rock "
     "candy|bonbon|fudge piece|dolly mix|pick n mix|pick mix|penny sweet|pear drop|aniseed ball|sherbet",
        "candies hard|taffy|toffee|butterscotch"},
    {"paddle pop|golden gaytime|bubble o bill|maxibon|weis bar|splice|choc wedge|ice cream on a stick|eskimo "
     "pie|dipped cone|choc top",
        "ice cream bar|cone"},
    {"up and go|up go|sustagen|breakfast drink|milo drink|carnation instant breakfast|instant breakfast",
        "milk beverage|drink flavored|supplement"},
    {"jatz|barbecue shape|bbq shape|chicken crimpy|savoys|arnotts shape", "crackers snack type"},
    {"salada|vita weat|vitaweat|cruskit|oatcake|oat cake|melba|finn crisp|matzo cracker|bran cracker",
        "crackers wheat|rye|melba|matzo|crispbread"},
    {"scotch finger|highland shortbread|walkers shortbread|shortbread finger|melting moment", "cookies shortbread"},
    {"milk arrowroot|malted milk|nice biscuit|marie|petit beurre|lu biscuit|social tea|maria cookie",
        "cookies animal crackers|butter|sugar"},
    {"mint slice|monte carlo|kingston biscuit|penguin bar|club biscuit|tunnocks|tunnocks wafer|blue riband|pink "
     "wafer|wafer biscuit|sugar wafer",
        "cookies chocolate|wafers sandwich|wafers|coated"},
    {"tunnocks teacake|mallomar|moon pie|wagon wheel|chocolate marshmallow biscuit", "cookies marshmallow chocolate"},
    {"pluto pup|dagwood dog|battered sav|pogo", "corn dogs|corndog"},
    {"potato scallop|tattie scone|potato scone|potato farl|boxty|rosti potato", "potato pancakes"},
    {"square sausage|lorne sausage|lorne|breakfast sausage patty|sausage patty|sausage link|pork patty",
        "pork sausage"},
    {"chicken fillet roll|spicy chicken burger|tower burger|fillet burger|chicken fillet burger|chicken fillet "
     "bap|crispy chicken burger",
        "chicken fillet sandwich"},
    {"spice bag|salt chilli chicken|chilli chicken|popcorn shrimp chicken", "restaurant chinese chicken"},
    {"club orange|lilt|kia ora|orangina|sanpellegrino orange|crush", "carbonated orange"},
    {"red lemonade|white lemonade|r whites|cloudy lemonade fizzy|fizzy lemonade|solo drink|lemon lime bitters|squirt "
     "soda",
        "carbonated lemon lime"},
    {"mieliepap|mealie|mealie meal|pap maize|ugali|sadza|corn porridge|polenta cooked|shrimp and grits|cheese grits",
        "cereals corn grits cooked"},
    {"kumara|kumera|sweet tater|japanese sweet potato|purple sweet potato", "sweet potato"},
    {"hokey pokey ice cream|plain ice cream|ice cream scoop|ice cream vanilla cone|whippy|mr whippy|soft serve cone|99 "
     "flake",
        "ice creams vanilla|vanilla cone"},
    {"donair|gyro meat|gyro pita|lamb shawarma|lamb gyro|lamb doner", "lamb ground cooked"},
    {"pizza pop|pizza roll|bagel bite|pizza pocket|totinos|totinos pizza roll|calzone pocket", "pizza pepperoni"},
    {"johnnycake|hoecake|corn pone|corn muffin|corn fritter|hushpuppy", "bread cornbread"},
    {"funnel cake|elephant ear|fritter|beavertail|beaver tail|paczki|long john|jam doughnut|custard doughnut|boston "
     "cream donut|donut hole|munchkin",
        "doughnuts"},
    {"hoppin john|black eyed bean|blackeye bean|blackeyed pea", "cowpeas cooked"},
    {"burnt end|smoked brisket|beef brisket|bbq brisket|brisket sandwich|texas brisket", "beef brisket cooked"},
    {"cheese curd|squeaky cheese|halloumi slice|farmers cheese|queso blanco", "cheese queso|mozzarella|colby"},
    {"queso dip|nacho cheese dip|cheese sauce nacho|chile con queso|spinach dip|artichoke dip|layer dip",
        "dip cheese|sauce cheese"},
    {"french onion dip|onion dip|chip dip sour cream|sour cream dip|sour cream chive dip",
        "sour cream|dressing sour|ranch"},
    {"waldorf salad|apple salad|grape salad|ambrosia salad", "salad grape|fruit apple|fruit"},
    {"ants on a log|ants log|celery pb|celery and peanut butter", "celery raw"},
    // brunch, and what is filled or topped
    {"egg benny|egg royale|egg florentine|poached egg toast", "egg poached"},
    {"breakfast sausage|breakfast link|sausage breakfast|breakfast sausage link|maple sausage", "pork sausage cooked"},
    {"chili cheese dog|coney dog|chilli dog|chicago dog|cheese dog", "hotdog"},
    {"stuffed pepper|stuffed bell pepper|stuffed capsicum", "peppers sweet"},
    {"loaded baked potato|loaded potato|potato cheese bacon|twice baked potato|loaded potato skin|loaded jacket "
     "potato|loaded spud",
        "potato baked topped cheese|sour"},
    {"jacket potato cheese|jacket potato with cheese|baked potato with cheese|baked potato cheese|cheesy jacket potato",
        "potato baked topped cheese"},
    {"chicken noodle", "soup chicken noodle"},
    {"iced latte oat milk|latte oat milk|coffee with oat milk|latte with oat milk|latte with almond milk|latte almond "
     "milk|latte soy milk|soya latte|oat milk coffee|coffee with almond milk|almond milk latte|coconut milk latte|soy "
     "milk latte|coffee skim milk|latte whole milk|coffee whole milk|coffee semi skimmed milk|latte skim "
     "milk|cappuccino oat milk|cappuccino skim milk",
        "coffee brewed"},
    {"cereal with almond milk|cereal almond milk|cereal oat milk|cereal skim milk|cereal with oat milk|cereal semi "
     "skimmed milk|cereal with skim milk|bowl cereal milk",
        "cereals ready eat"},
    {"ham swiss|ham and swiss|turkey swiss|ham cheddar sandwich|ham swiss sandwich", "ham cheese sandwich"},
    // fruit in pieces and in jars
    {"pineapple chunk|pineapple piece|pineapple slice|pineapple ring", "pineapple raw|canned"},
    {"grape jelly|redcurrant jelly|apple jelly|strawberry jelly|quince jelly|blackcurrant jelly|raspberry "
     "jelly|jalapeno jelly|cranberry jelly",
        "jellies"},
    {"rice cake peanut butter|rice cake pb|rice cake with peanut butter|rice cake avocado|rice cake jam|rice cake "
     "nutella|rice cake hummus",
        "rice cakes"},
    {"mango chunk|mango piece|frozen mango|dried mango|mango slice", "mangos raw"},
    {"peach slice|sliced peach|peach half|peach halves", "peaches raw|canned"},
    {"orange segment|orange slice|sliced orange|orange wedge", "oranges raw"},
    {"mandarin segment|mandarin piece|mandarin orange|tinned mandarin", "tangerines mandarin"},
    {"beef burger|beefburger|cheese beef burger", "hamburger patty"},
    {"bean sausage|sausage bean|franks beans|bean franks", "beans baked franks"},
};

} // namespace

std::span<const SynonymTable::Row> SynonymTable::dishes()
{
    return table;
}
