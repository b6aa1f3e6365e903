' The public classes as a client without a manifest finds them: by registration.
Option Explicit
Dim control, price
Set price = CreateObject("ZEPPriceDownPrepare.updatePrice")
CheckEqual "updatePrice is created", CLng(price.ItemClassType), CLng(0)
CheckEqual "its type is known", TypeName(price), "_updatePrice"
Set control = CreateObject("ZEPPriceDownPrepare.PriceDown.1")
CheckEqual "PriceDown is created", TypeName(control), "_PriceDown"
Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
CheckEqual "PriceDown is created in a container", TypeName(control), "_PriceDown"
CloseWindows
