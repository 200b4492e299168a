/* Of the test's dialog; for the resource compiler too. */
#define kGridDialog 100
#define kBeforeField 1006
#define kGridControl 1007
