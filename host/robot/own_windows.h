// The windows of this process as a robot's stage.
#pragma once

#include "robot/stage.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <string_view>

namespace Kesto {
class CView;
class CWindow;
} // namespace Kesto

namespace Host {

// The name that a layout has for a view's class; "" if none does.
using ClassNamer = std::function<std::string_view(const Kesto::CView& view)>;

// A window and its views as one object, with ids and names of classes. `product` is what the window
// says that it belongs to.
nlohmann::ordered_json DescribeWindow(const Kesto::CWindow& window, const ClassNamer& classNamer,
                                      std::string_view product);

class OwnWindows final : public Stage {
public:
    OwnWindows(ClassNamer classNamer, std::string_view product)
        : fClassNamer(std::move(classNamer)), fProduct(product)
    {
    }

    nlohmann::ordered_json Describe(void* window) override;

private:
    ClassNamer fClassNamer;
    std::string_view fProduct;
};

} // namespace Host
