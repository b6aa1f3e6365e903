' The public class updatePrice: one name is the operation and the property.
Option Explicit
Dim suite, price
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"

Set price = CreateObject("ZEPPriceDownPrepare.updatePrice")
CheckEqual "the property is 0 before the operation", CLng(price.ItemClassType), CLng(0)
price.ItemClassType
CheckEqual "the operation reads the setting", CLng(price.ItemClassType), CLng(1)
suite.ItemClassType = "2"
CheckEqual "the property keeps what was read", CLng(price.itemclasstype), CLng(1)
PRICE.ITEMCLASSTYPE
CheckEqual "names are found in any case", CLng(price.ItemClassType), CLng(2)
suite.ItemClassType = "abc"
price.ItemClassType
CheckEqual "a text that is no number gives 0", CLng(price.ItemClassType), CLng(0)
suite.ItemClassType = "1"

On Error Resume Next
price.NoSuchMember
Check "an unknown member is an error", Err.Number <> 0
Err.Clear
price.ItemClassType 5
Check "the operation takes no argument", Err.Number <> 0
