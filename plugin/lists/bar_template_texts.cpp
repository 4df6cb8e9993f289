#include "lists/bar_template_texts.h"

#include <array>

/// The English descriptions stand as they are; required.
namespace arap {

namespace {

// clang-format off
constexpr auto kReceiveBill = std::to_array<ToolTexts>({
    {"Previous"_key,         "前条",                 "前张单据",             ""},
    {"Next"_key,             "后条",                 "后张单据",             ""},
    {"Save"_key,             "存盘",                 "存盘",                 ""},
    {"New"_key,              "新增",                 "新增单据",             ""},
    {"Exit"_key,             "关闭",                 "关闭",                 ""},
    {"Print"_key,            "打印",                 "打印",                 "Print current file"},
    {"Code"_key,             "代码",                 "代码",                 "Start spellchecker"},
    {"Accessory"_key,        "附件",                 "附件管理",             ""},
    {"PrintPreview"_key,     "打印预览",             "打印预览",             "Print preview current file"},
    {"Check"_key,            "审核",                 "审核",                 "", "CHECK"},
    {"InsertRecord"_key,     "插入",                 "插入分录",             ""},
    {"DeleteRecord"_key,     "删除",                 "删除分录",             ""},
    {"HeXiao"_key,           "核销",                 "核销",                 "", "PART"},
    {"Voucher"_key,          "凭证",                 "凭证",                 "", "VOUCHER"},
    {"Refresh"_key,          "刷新",                 "刷新记录",             ""},
    {"File"_key,             "文件",                 "",                     ""},
    {"View"_key,             "查看",                 "",                     "", "VIEW"},
    {"FCopy"_key,            "复制",                 "复制",                 ""},
    {"HotTrace"_key,         "列表",                 "自动列表",             ""},
    {"RPBill"_key,           "应收款",               "关联应收款资料",       "", "VIEW"},
});

constexpr auto kReport = std::to_array<ToolTexts>({
    {"Print"_key,            "打印",                 "打印",                 ""},
    {"PrintPreview"_key,     "预览",                 "打印预览",             ""},
    {"New"_key,              "新增(&N)",             "新增",                 ""},
    {"Exit"_key,             "关闭",                 "关闭",                 ""},
    {"Filter"_key,           "过滤",                 "过滤",                 ""},
    {"Refresh"_key,          "刷新(&R)",             "刷新",                 ""},
    {"tlFile"_key,           "文件",                 "",                     ""},
    {"Voucher"_key,          "凭证",                 "查看凭证",             "凭证", "VOUCHER"},
    {"tlView"_key,           "查看",                 "查看",                 "", "VIEW"},
    {"PageSetup"_key,        "页面设置",             "Page Setup",           "Setup page properties"},
    {"PrintSetup"_key,       "打印设置",             "打印设置",             "Set up printer properties"},
    {"Delete"_key,           "删除",                 "删除单据",             ""},
    {"Analize"_key,          "分析",                 "",                     ""},
    {"lblCaption"_key,       "发票类型：",           "",                     ""},
    {"UnCheck"_key,          "取消审核",             "取消审核",             "", "CONVERT"},
    {"cmdPlan"_key,          "收款计划：",           "",                     ""},
    {"Check"_key,            "审核",                 "审核",                 "审核", "CHECK"},
    {"MultiPrint"_key,       "连续打印(&R)...",      "",                     ""},
    {"MultiPreview"_key,     "连续预览(&C)...",      "",                     ""},
    {"Update"_key,           "修改",                 "修改单据",             ""},
    {"export"_key,           "引出...",              "引出当前数据",         ""},
    {"InvoiceVoucher"_key,   "附加信息",             "",                     "", "VOUCHER"},
    {"PrintInvoice"_key,     "打印单据...",          "打印单据",             ""},
    {"NPrintSetup"_key,      "打印设置(&S)...",      "Print Setup",          "Set up printer properties"},
    {"InvoicePrintPreview"_key,"打印预览(&V)...",      "打印预览",             ""},
    {"InvoicePrint"_key,     "打印(&P)...",          "",                     ""},
    {"NoteSetup"_key,        "套打设置(&N)...",      "",                     ""},
    {"BatchCheck"_key,       "成批审核(&C)",         "",                     "", "CHECK"},
    {"BatchUnCheck"_key,     "成批反审(&U)",         "",                     "", "CONVERT"},
    {"tlEdit"_key,           "编辑(&E)",             "",                     ""},
    {"FreeItem"_key,         "单据自由项...",        "",                     ""},
    {"FCopy"_key,            "复制",                 "复制",                 ""},
});

constexpr auto kInvoice = std::to_array<ToolTexts>({
    {"FCopy"_key,            "复制",                 "复制",                 ""},
    {"Save"_key,             "存盘(&S)",             "存盘",                 "Saves current active file"},
    {"PrintPreview"_key,     "打印预览(&V)",         "打印预览",             "Print preview current file"},
    {"Print"_key,            "打印(&P)",             "打印",                 "Print current file"},
    {"PrintSetup"_key,       "打印设置(&S)",         "打印设置",             "Set up printer properties"},
    {"Exit"_key,             "退出(&E)",             "退出",                 "Close all documents and exit"},
    {"Cancel"_key,           "取消(&C)",             "取消",                 "Undo last action"},
    {"New"_key,              "新增(&N)",             "新增",                 "Creates a new, blank file"},
    {"Delete"_key,           "删除(&D)",             "删除",                 ""},
    {"Previous"_key,         "前条(&P)",             "前条",                 ""},
    {"Next"_key,             "后条(&N)",             "后条",                 ""},
    {"AutoCalc"_key,         "公式",                 "使用公式计算",         "", "SUM"},
    {"Accessory"_key,        "附件",                 "附件管理",             ""},
    {"Code"_key,             "编码(&B)",             "编码",                 "Start spellchecker"},
    {"Cheque"_key,           "支票(&C)",             "支票",                 ""},
    {"Voucher"_key,          "凭证(&V)",             "凭证",                 "", "VOUCHER"},
    {"File"_key,             "文件(&F)",             "文件",                 ""},
    {"Edit"_key,             "编辑(&E)",             "编辑",                 ""},
    {"View"_key,             "查看(&V)",             "查看",                 "", "VIEW"},
    {"UnCheck"_key,          "取消审核(&U)",         "取消审核",             "", "CONVERT"},
    {"Refresh"_key,          "刷新(&R)",             "刷新",                 ""},
    {"Filter"_key,           "过滤(&F)",             "过滤",                 ""},
    {"InsertEntry"_key,      "插入",                 "插入分录",             ""},
    {"DeleteEntry"_key,      "删除",                 "删除分录",             ""},
    {"Up"_key,               "分录上移(&U)",         "分录上移",             ""},
    {"Down"_key,             "分录下移(&D)",         "分录下移",             ""},
    {"FClose"_key,           "关闭(&K)",             "关闭",                 ""},
    {"Fcheck"_key,           "审核(&C)",             "审核",                 "", "CHECK"},
    {"FOpen"_key,            "打开",                 "打开",                 ""},
});
// clang-format on

}  // namespace

std::span<const ToolTexts> ReceiveBillTexts() { return kReceiveBill; }
std::span<const ToolTexts> ReportTexts() { return kReport; }
std::span<const ToolTexts> InvoiceTexts() { return kInvoice; }

}  // namespace arap
