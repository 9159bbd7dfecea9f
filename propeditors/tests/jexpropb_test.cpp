// Jexpropb: the project name the run-time library asks for comes from the designer's tool services.
#include <gtest/gtest.h>

#include "dcljexc/jexpropb.h"
#include "ide/experts.h"

namespace {

TEST(Jexpropb, ProjectNameComesFromTheToolServices) {
    ide::TToolServicesConfig config;
    config.ProjectName = [] { return std::string("Warehouse"); };
    ide::ConfigureToolServices(config);
    EXPECT_EQ(dcljexc::jexGetToolServicesProjectName(), "Warehouse");
    ide::ConfigureToolServices({});
    EXPECT_EQ(dcljexc::jexGetToolServicesProjectName(), ide::ToolServices->GetProjectName());
}

} // namespace
