#pragma once

#include <array>

namespace sample {

/// A place in this program where remarks are shown; the database knows it by its ID.
struct Place {
  const char* id;
  const char* caption;
  bool isForOrders;
};

inline constexpr std::array kPlaces{Place{"CustMaint", "Customer Maintenance", false},
                                    Place{"CustInq", "Customer Inquiry", false},
                                    Place{"OrderEntry", "Order Entry", true}};

}  // namespace sample
