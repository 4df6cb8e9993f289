#include "windows/captions.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace desk {

namespace {

struct Caption {
  std::string_view sChinese;
  const char* sEnglish;
};

constexpr std::array kCaptions{
    Caption{"应收应付", "Receivables and payables"},
    Caption{"收款单", "Receipts"},
    Caption{"付款单", "Payments"},
    Caption{"其他收入单", "Other receivables"},
    Caption{"费用支出单", "Other payables"},
    Caption{"收支类别", "Income and expense types"},
    Caption{"收支类别一览", "List of types"},
    Caption{"发票", "Invoices"},
    Caption{"期初余额", "Opening balances"},
    Caption{"应收明细", "Open receivables"},
    Caption{"应付明细", "Open payables"},
    Caption{"操作日志", "Action log"},
    Caption{"文件", "File"},
    Caption{"视图", "View"},
    Caption{"语言", "Language"},
    Caption{"新增收款单", "New receipt"},
    Caption{"新增付款单", "New payment"},
    Caption{"新增其他收入单", "New other receivable"},
    Caption{"新增费用支出单", "New other payable"},
    Caption{"打开", "Open"},
    Caption{"刷新", "Refresh"},
    Caption{"退出", "Quit"},
    Caption{"关闭", "Close"},
    Caption{"检查器", "Inspector"},
    Caption{"复制", "Copy"},
    Caption{"清空", "Clear"},
    Caption{"筛选", "Filter"},
    Caption{"内容", "What happened"},
    Caption{"用时(毫秒)", "Time (ms)"},
    Caption{"选择源单", "Choose source bills"},
    Caption{"确定", "OK"},
    Caption{"取消", "Cancel"},
    Caption{"全选", "Select all"},
    Caption{"全清", "Select none"},
    Caption{"单据编号", "Number"},
    Caption{"日期", "Date"},
    Caption{"到期日", "Due"},
    Caption{"币别", "Currency"},
    Caption{"金额", "Amount"},
    Caption{"已核销", "Settled"},
    Caption{"类型", "Kind"},
    Caption{"类别", "Type"},
    Caption{"分录金额", "Line amount"},
    Caption{"未核销", "Open"},
    Caption{"已选%1张，未核销合计 %2", "%1 chosen, open %2"},
    Caption{"合计", "Total"},
    Caption{"预览", "Preview"},
    Caption{"打印", "Print"},
    Caption{"计算器", "Calculator"},
    Caption{"取用结果", "Use the result"},
    Caption{"“%1”无法计算。", "\"%1\" can't be worked out."},
    Caption{"导出PDF", "Export PDF"},
    Caption{"凭证", "Voucher"},
    Caption{"科目代码", "Account"},
    Caption{"科目名称", "Account name"},
    Caption{"借方金额", "Debit"},
    Caption{"贷方金额", "Credit"},
    Caption{"只读", "Read only"},
    Caption{"新单据", "New bill"},
    Caption{"未审核", "Not checked"},
    Caption{"已审核", "Checked"},
    Caption{"审核人：%1", "Checked by %1"},
    Caption{"单据已修改，保存后再关闭吗？", "The bill was changed. Save it before closing?"},
    Caption{"往来单位", "Partner"},
    Caption{"名称", "Name"},
    Caption{"代码", "Code"},
    Caption{"状态", "Status"},
    Caption{"找到多个“%1”，请选择其中一个。", "\"%1\" names several; choose one."},
    Caption{"没有代码或名称为“%1”的资料。", "Nothing has the code or name \"%1\"."},
    Caption{"登录", "Log in"},
    Caption{"用户", "User"},
    Caption{"正在执行：%1", "Running: %1"},
    Caption{"完成：%1", "Done: %1"},
    Caption{"：%1在%2上从%3起正在编辑", ": %1 on %2 has been editing it since %3"},
    Caption{"保存", "Save"},
    Caption{"时间", "Time"},
    Caption{"计算机", "Machine"},
    Caption{"功能", "Function"},
    Caption{"核销金额", "Settled"},
    Caption{"实收付金额", "Money"},
    Caption{"折扣金额", "Discount"},
    Caption{"审核人", "Checked by"},
    Caption{"摘要", "Note"},
    Caption{"源单编号", "Source"},
    Caption{"本次核销", "Settled here"},
    Caption{"共%1行", "%1 lines"},
    Caption{"共%1行，已选%2张单据", "%1 lines, %2 bills chosen"},
    Caption{"操作结果", "Result"},
    Caption{"提示信息", "What was said"},
    Caption{"成功%1张，未成功%2张", "%1 done, %2 not done"},
    Caption{"导出CSV", "Export CSV"},
    Caption{"帮助", "Help"},
    Caption{"帮助文件“%1”无法打开，请检查它是否存在。",
            "The help file \"%1\" can't be opened. Check that it is there."},
    Caption{"文件“%1”无法写入。", "The file \"%1\" can't be written."},
    Caption{"级次", "Level"},
    Caption{"明细", "Detail"},
    Caption{"是", "Yes"},
    Caption{"否", "No"},
    Caption{"使用中", "In use"},
    Caption{"已禁用", "Disabled"},
    Caption{"新增", "New"},
    Caption{"修改", "Modify"},
    Caption{"是否删除“%1”？", "Delete \"%1\"?"},
    Caption{"资料已不存在，请刷新。", "It is no longer there; refresh."},
    Caption{"单据列表", "Bills"},
    Caption{"汇率", "Rate"},
    Caption{"本位币金额", "In home currency"},
    Caption{"部门", "Department"},
    Caption{"业务员", "Clerk"},
    Caption{"备注", "Note"},
    Caption{"%1：第%2张，共%3张", "%1: bill %2 of %3"},
};

Language& chosen() {
  static Language language = Language::Chinese;
  return language;
}

}  // namespace

void set_language(Language language) { chosen() = language; }

Language language() { return chosen(); }

QString words(const char* sChinese) {
  if (chosen() == Language::English) {
    const auto found = std::find_if(kCaptions.begin(), kCaptions.end(),
                                    [&](const Caption& caption) { return caption.sChinese == sChinese; });
    if (found != kCaptions.end()) return QString::fromUtf8(found->sEnglish);
  }
  return QString::fromUtf8(sChinese);
}

}  // namespace desk
