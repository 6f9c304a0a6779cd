// Tells what an order has; ends with 1 if what is given is no order.

#include <BxXmlLib5/BxXmlLib5.h>

#include <iostream>

#include "Shop.h"
#include "Shop_Common.h"

namespace Bx = BxXmlLib5::Generated;

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    try {
        Shop::COrder order;
        order.Load(argv[1]);
        for (Shop::CItem& item : order.Items) std::cout << Bx::Utf8(item.Sku) << ' ';
        std::cout << Bx::Utf8(order.Price->Value) << ' ' << Bx::Utf8(order.Price->Currency) << '\n';
    } catch (BxXmlLib5::CBxException const& failure) {
        std::cerr << BxXmlLib5::ToUtf8(failure.GetFullMessage()) << '\n';
        return 1;
    }
}
