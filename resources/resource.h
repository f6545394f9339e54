#pragma once
// The program's resource ids: dialogs, controls, menus and commands, tool bars, bitmaps, icons and
// strings. Every control with an id carries it as its objectName ("c1000"); every menu or tool-bar
// command is a QAction named "cmd<id>" ("cmd32835").
//
// The program's own furniture that has no number of its own elsewhere (the progress box's and the
// confirmation dialog's controls, the goals, about and photo dialogs, two bitmaps) takes its ids
// from the ranges 270-299 and 1300-1399, which nothing else uses; commands of our own come from
// 32870-32899.

// --- Dialogs ----------------------------------------------------------------------------------
constexpr int IDD_KOVALIN_DIALOG = 102; // the main dialog: the tab control and nothing else
constexpr int IDD_UPPERBODY = 132;
constexpr int IDD_TODAY = 133;
constexpr int IDD_LOWERBODY = 135;
constexpr int IDD_AEROBIC = 136;
constexpr int IDD_FOOD = 137;
constexpr int IDD_REPORTS = 138;
constexpr int IDD_SETGRID = 143;
constexpr int IDD_ITEMLIST = 175;
constexpr int IDD_CALENDAR = 182;
constexpr int IDD_OPTIONS = 194;
constexpr int IDD_CONFIRM = 215;
constexpr int IDD_STARTUP = 231;
constexpr int IDD_SELECTUSER = 233;
constexpr int IDD_GOALS = 270;
constexpr int IDD_ABOUTBOX = 271;
constexpr int IDD_PHOTO = 272;
constexpr int IDD_SELECTEXERCISE = 290; // "Select an exercise": the set-entry grid's exercise picker
constexpr int IDD_MEAL = 276;           // the meal dialog of the food page

// --- Icons, menus and tool bars ---------------------------------------------------------------
constexpr int IDR_MAINFRAME = 128; // the program's icon, large and small
constexpr int IDR_MENUBAR = 129;   // the command bar's menu bar: "Menu"
constexpr int IDR_UPPERBODY_TOOLBAR = 151;
constexpr int IDR_LOWERBODY_TOOLBAR = 157;
constexpr int IDR_FOOD_TOOLBAR = 162;
constexpr int IDR_TODAY_TOOLBAR = 178;
constexpr int RT_TOOLBAR = 241;          // the resource type tool bars are kept as
constexpr int IDR_SETGRID_MENU = 291;    // the set-entry grid's pop-up "Clear..."
constexpr int IDR_SETGRID_TOOLBAR = 292; // the set-entry grid's buttons: save, cancel, pick, edit list

// --- Bitmaps ----------------------------------------------------------------------------------
// The seven tab images (15 pixels wide, masked on pure green).
constexpr int IDB_TODAY = 145;
constexpr int IDB_AEROBIC = 146;
constexpr int IDB_REPORTS = 147;
constexpr int IDB_LOWERBODY = 148;
constexpr int IDB_FOOD = 149;
constexpr int IDB_UPPERBODY = 150;
constexpr int IDB_CALENDAR = 181;
// A tool bar's button images are the bitmap with the tool bar's own id, 16 pixels per button.
constexpr int IDB_UPPERBODY_TOOLBAR = IDR_UPPERBODY_TOOLBAR;
constexpr int IDB_LOWERBODY_TOOLBAR = IDR_LOWERBODY_TOOLBAR;
constexpr int IDB_FOOD_TOOLBAR = IDR_FOOD_TOOLBAR;
constexpr int IDB_TODAY_TOOLBAR = IDR_TODAY_TOOLBAR;
constexpr int IDB_STARTUP = 280;                         // the picture of the start-up progress box
constexpr int IDB_INPUTPANEL = 281;                      // the input-panel button of the command bar
constexpr int IDB_SETGRID_BAR = 197;                     // the column heads over the set-entry grid's rows
constexpr int IDB_SETGRID_TOOLBAR = IDR_SETGRID_TOOLBAR; // the set-entry grid's button images
constexpr int IDB_NOW = 293;                             // the strength pages' "!" (now) buttons
constexpr int IDB_MEAL = 277;                            // the meal dialog's picture ("food.bmp")
// The Today page's pictures beside "food.bmp" (the meal dialog's): "today.bmp" and "goals.bmp", 48 x 40,
// and "workout.bmp", 48 x 32.
constexpr int IDB_TODAY_TODAY = 282;
constexpr int IDB_TODAY_WORKOUT = 283;
constexpr int IDB_TODAY_GOALS = 284;
// The calendar's marks, 10 x 10: upper body, lower body and aerobic on a day of the shown month,
// and the same three on a grey day of a neighbouring month.
constexpr int IDB_CAL_UPPER = 183;
constexpr int IDB_CAL_LOWER = 184;
constexpr int IDB_CAL_AEROBIC = 185;
constexpr int IDB_CAL_UPPER_OTHER = 186;
constexpr int IDB_CAL_LOWER_OTHER = 229;
constexpr int IDB_CAL_AEROBIC_OTHER = 230;

// --- Controls ---------------------------------------------------------------------------------
constexpr int IDC_TAB = 1000; // the main dialog's tab row

// Options dialog.
constexpr int IDC_PULLWT = 1037;
constexpr int IDC_CKDATE = 1123;
constexpr int IDC_FILLIN = 1124;
constexpr int IDC_SHOWBOX = 1125;
constexpr int IDC_PULLLAST = 1126;
constexpr int IDC_ASONE = 1127;

// Select-user dialog.
constexpr int IDC_USERLIST = 1028;

// Strength log pages (dialogs 132 and 135).
constexpr int IDC_STRENGTH_DATE = 1004;
constexpr int IDC_STRENGTH_START = 1005;
constexpr int IDC_STRENGTH_END = 1006;
constexpr int IDC_STRENGTH_LIST = 1007;
constexpr int IDC_STRENGTH_NOTES = 1014;
constexpr int IDC_STRENGTH_COMPLETED = 1015;
constexpr int IDC_STRENGTH_STARTNOW = 1018;
constexpr int IDC_STRENGTH_ENDNOW = 1019;
constexpr int IDC_STRENGTH_ELAPSED = 1085;
constexpr int IDC_STRENGTH_DBG = 1088;

// Aerobic log page (dialog 136): the form, the two buttons under it, "del", and the twenty
// intensity drop-downs of minutes 1 to 20 with their three labels.
constexpr int IDC_AEROBIC_DATE = 1004;
constexpr int IDC_AEROBIC_START = 1005;
constexpr int IDC_AEROBIC_END = 1006;
constexpr int IDC_AEROBIC_NOTES = 1014;
constexpr int IDC_AEROBIC_COMPLETED = 1015;
constexpr int IDC_AEROBIC_STARTNOW = 1018;
constexpr int IDC_AEROBIC_ENDNOW = 1019;
constexpr int IDC_AEROBIC_ELAPSED = 1085;
constexpr int IDC_AEROBIC_EXERCISE = 1100;
constexpr int IDC_AEROBIC_COURSE = 1101;
constexpr int IDC_AEROBIC_EXERCISELIST = 1102;
constexpr int IDC_AEROBIC_COURSELIST = 1103;
constexpr int IDC_AEROBIC_DISTANCE = 1104;
constexpr int IDC_AEROBIC_DISTANCESPIN = 1105;
constexpr int IDC_AEROBIC_HEARTRATE = 1106;
constexpr int IDC_AEROBIC_HEARTRATESPIN = 1107;
constexpr int IDC_AEROBIC_FIRSTBUTTON = 1108;
constexpr int IDC_AEROBIC_SECONDBUTTON = 1109;
constexpr int IDC_AEROBIC_DELETE = 1110;
constexpr int IDC_AEROBIC_LABELS[3] = {1111, 1112, 1113};
constexpr int IDC_AEROBIC_MINUTES[20] = {1150, 1151, 1152, 1153, 1154, 1155, 1156, 1157, 1158, 1159,
                                         1160, 1161, 1162, 1163, 1164, 1165, 1166, 1167, 1168, 1169};

// Set-entry grid (dialog 143): the bitmap bar, the scroll bar, and per row (1-12) the exercise,
// reps, weight edit, up-down, rest and intensity controls.
constexpr int IDC_GRID_BAR = 1002;
constexpr int IDC_GRID_SCROLL = 1050;
constexpr int IDC_GRID_ROWS[12][6] = {
    {1009, 1010, 1013, 1046, 1014, 1012}, {1039, 1011, 1015, 1047, 1018, 1016}, {1040, 1020, 1021, 1024, 1023, 1022},
    {1041, 1025, 1026, 1029, 1028, 1027}, {1042, 1030, 1031, 1034, 1033, 1032}, {1045, 1035, 1036, 1044, 1043, 1037},
    {1057, 1052, 1053, 1056, 1055, 1054}, {1063, 1058, 1059, 1062, 1061, 1060}, {1081, 1076, 1077, 1080, 1079, 1078},
    {1087, 1082, 1083, 1086, 1085, 1084}, {1093, 1088, 1089, 1092, 1091, 1090}, {1099, 1094, 1095, 1098, 1097, 1096},
};

// Item list editor (dialog 175).
constexpr int IDC_ITEM_ADD = 1002;
constexpr int IDC_ITEM_EDIT = 1008;
constexpr int IDC_ITEM_LIST = 1028;
constexpr int IDC_ITEM_DELETE = 1030;
constexpr int IDC_ITEM_PROMPT1 = 1065;
constexpr int IDC_ITEM_PROMPT2 = 1066;

// "Select an exercise" (dialog 290).
constexpr int IDC_EXERCISE_LIST = 1330;

// Food log page (dialog 137): the date, the day values with the spins of water, weight and body fat,
// the notes, the meal list and the three counts under it.
constexpr int IDC_FOOD_DATE = 1350;
constexpr int IDC_FOOD_WATER = 1351;
constexpr int IDC_FOOD_WATERSPIN = 1352;
constexpr int IDC_FOOD_WEIGHT = 1353;
constexpr int IDC_FOOD_WEIGHTSPIN = 1354;
constexpr int IDC_FOOD_BODYFAT = 1355;
constexpr int IDC_FOOD_BODYFATSPIN = 1356;
constexpr int IDC_FOOD_SLEEP = 1357;
constexpr int IDC_FOOD_SLEEPQUALITY = 1358;
constexpr int IDC_FOOD_SYSTOLIC = 1359;
constexpr int IDC_FOOD_DIASTOLIC = 1360;
constexpr int IDC_FOOD_RESTHR = 1361;
constexpr int IDC_FOOD_OVERALL = 1362;
constexpr int IDC_FOOD_CHEST = 1363;
constexpr int IDC_FOOD_BICEPS = 1364;
constexpr int IDC_FOOD_WAIST = 1365;
constexpr int IDC_FOOD_QUADS = 1366;
constexpr int IDC_FOOD_CALVES = 1367;
constexpr int IDC_FOOD_NOTES = 1368;
constexpr int IDC_FOOD_MEALS = 1369;
constexpr int IDC_FOOD_PROCOUNT = 1370;
constexpr int IDC_FOOD_CARBCOUNT = 1371;
constexpr int IDC_FOOD_VEGCOUNT = 1372;
constexpr int IDC_FOOD_SCROLL = 1373; // the scroll area that holds every control but the date

// Meal dialog (276): the time and its "!", the four food drop-downs and their "<-" buttons, the picture.
constexpr int IDC_MEAL_TIME = 1380;
constexpr int IDC_MEAL_NOW = 1381;
constexpr int IDC_MEAL_PROTEIN = 1382;
constexpr int IDC_MEAL_CARB = 1383;
constexpr int IDC_MEAL_VEG = 1384;
constexpr int IDC_MEAL_OTHER = 1385;
constexpr int IDC_MEAL_PROTEINLIST = 1386;
constexpr int IDC_MEAL_CARBLIST = 1387;
constexpr int IDC_MEAL_VEGLIST = 1388;
constexpr int IDC_MEAL_OTHERLIST = 1389;
constexpr int IDC_MEAL_PICTURE = 1390;

// Calendar page (dialog 182): the month buttons along the top edge, left to right.
constexpr int IDC_CAL_PREVIOUS = 1002;
constexpr int IDC_CAL_CURRENT = 1004;
constexpr int IDC_CAL_NEXT = 1003;
// Reports page (dialog 138): the measure, the period, the set number and the exercise.
constexpr int IDC_REPORTS_MEASURE = 1009;
constexpr int IDC_REPORTS_PERIOD = 1010;
constexpr int IDC_REPORTS_SET = 1089;
constexpr int IDC_REPORTS_EXERCISE = 1012;
// The Utilities dialog: its buttons, the status line and the progress bar.
constexpr int IDD_UTILITIES = 273;
constexpr int IDC_UTIL_BACKUP = 1400;
constexpr int IDC_UTIL_RESTORE = 1401;
constexpr int IDC_UTIL_COMPACT = 1402;
constexpr int IDC_UTIL_DELETE = 1403;
constexpr int IDC_UTIL_EXPORT = 1404;
constexpr int IDC_UTIL_IMPORT = 1405;
constexpr int IDC_UTIL_HELP = 1406;
constexpr int IDC_UTIL_STATUS = 1407;
constexpr int IDC_UTIL_PROGRESS = 1408;

// Start-up progress box.
constexpr int IDC_STARTUP_PICTURE = 1300;
constexpr int IDC_STARTUP_TEXT = 1301;
constexpr int IDC_STARTUP_PROGRESS = 1302;

// Confirmation dialog.
constexpr int IDC_CONFIRM_TEXT = 1310;
constexpr int IDC_CONFIRM_YESLABEL = 1311;
constexpr int IDC_CONFIRM_YES = 1312;
constexpr int IDC_CONFIRM_DONTSHOW = 1313;

// Goals, about and photo dialogs.
constexpr int IDC_GOALS_TEXT = 1320;
constexpr int IDC_ABOUT_ICON = 1321;
constexpr int IDC_ABOUT_NAME = 1322;
constexpr int IDC_ABOUT_VERSION = 1323;
constexpr int IDC_PHOTO = 1324;

// --- Commands ---------------------------------------------------------------------------------
// Menu 129.
constexpr int ID_MENU_GOALS = 32829;
constexpr int ID_MENU_ABOUT = 32831;
constexpr int ID_MENU_PHOTO = 32834;
constexpr int ID_MENU_OPTIONS = 32835;
constexpr int ID_MENU_UTILITIES = 32836;
constexpr int ID_MENU_SWITCHUSER = 32863;
constexpr int ID_MENU_MANAGEUSERS = 32862;
constexpr int ID_MENU_HELP = 32861;
constexpr int ID_MENU_EXIT = 32833;

// Today tool bar (178).
constexpr int ID_TODAY_REFRESH = 32832;

// Upper-body tool bar (151): the muscle groups, in menu order.
constexpr int ID_UPPER_CHEST = 32793;
constexpr int ID_UPPER_SHOULDERS = 32794;
constexpr int ID_UPPER_BACK = 32795;
constexpr int ID_UPPER_TRICEPS = 32796;
constexpr int ID_UPPER_BICEPS = 32797;
constexpr int ID_UPPER_MISC = 32837;

// Lower-body tool bar (157): the muscle groups, in menu order.
constexpr int ID_LOWER_QUADS = 32816;
constexpr int ID_LOWER_HAMSTRINGS = 32817;
constexpr int ID_LOWER_CALVES = 32819;
constexpr int ID_LOWER_ABS = 32820;
constexpr int ID_LOWER_MISC1 = 32838;
constexpr int ID_LOWER_MISC2 = 32839;

// Food tool bar (162).
constexpr int ID_FOOD_ADDMEAL = 32828;

// The strength list's row menu.
constexpr int ID_STRENGTH_DELETE = 32870;
constexpr int ID_STRENGTH_EDIT = 32871;

// The set-entry grid: its buttons and its "Clear..." pop-up.
constexpr int ID_GRID_SAVE = 32872;
constexpr int ID_GRID_CANCEL = 32873;
constexpr int ID_GRID_SELECTEXERCISE = 32874;
constexpr int ID_GRID_EDITLIST = 32875;
constexpr int ID_CLEAR_ALLROWS = 32876;
constexpr int ID_CLEAR_CURRENTROW = 32877;
constexpr int ID_CLEAR_ROWANDBELOW = 32878;

// The food page's meal list menus ("Add Meal" is the tool bar's command).
constexpr int ID_FOOD_DELETEMEAL = 32890;
constexpr int ID_FOOD_EDITMEAL = 32891;

// The calendar's pop-up of a day with several entries.
constexpr int ID_CAL_UPPERBODY = 32880;
constexpr int ID_CAL_LOWERBODY = 32881;
constexpr int ID_CAL_AEROBIC = 32882;

// Commands the main window receives and ignores.
constexpr int ID_IGNORED_32774 = 32774;
constexpr int ID_IGNORED_32847 = 32847;

// --- Strings ----------------------------------------------------------------------------------
constexpr int IDS_RELEASENOTES = 32853;
