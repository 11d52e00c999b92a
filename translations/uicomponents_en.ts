<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="zh_CN">
<context>
    <name>UxCalendarTimeWidget</name>
    <message>
        <source>zh_CN</source>
        <translation>en_US</translation>
    </message>
    <message>
        <source>年</source>
        <translation>Year</translation>
    </message>
    <message>
        <source>月</source>
        <translation>Month</translation>
    </message>
    <message>
        <source>时间  </source>
        <translation>Time  </translation>
    </message>
    <message>
        <source> ：</source>
        <translation> :</translation>
    </message>
    <message>
        <source>现在</source>
        <translation>Now</translation>
    </message>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>UxCustomTableWidget</name>
    <message>
        <source>UxCustomTableWidget</source>
        <translation>UxCustomTableWidget</translation>
    </message>
</context>
<context>
    <name>UxFileDialog</name>
    <message>
        <source>CustomFileDialog</source>
        <translation>CustomFileDialog</translation>
    </message>
    <message>
        <source>最小化</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>文件选择框</source>
        <translation>Open File</translation>
    </message>
    <message>
        <source>文件保存框</source>
        <translation>Save File</translation>
    </message>
    <message>
        <source>文件目录：</source>
        <translation>Look in:</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>UxKeyBoradSprit</name>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
    </message>
</context>
<context>
    <name>UxMessageBox</name>
    <message>
        <source>RkMessageBox</source>
        <translation>RkMessageBox</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Save All</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Yes to All</source>
        <translation>Yes to All</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>No to All</source>
        <translation>No to All</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abort</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Retry</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignore</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Apply</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Reset</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Restore Defaults</translation>
    </message>
</context>
<context>
    <name>UxMiniClockPannel</name>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
    </message>
    <message>
        <source>小时钟</source>
        <translation>World Clock</translation>
    </message>
    <message>
        <source>10:24:30</source>
        <translation>10:24:30</translation>
    </message>
    <message>
        <source>旧金山</source>
        <translation>San Francisco</translation>
    </message>
    <message>
        <source>美东</source>
        <translation>New York</translation>
    </message>
    <message>
        <source>北京</source>
        <translation>Beijing</translation>
    </message>
    <message>
        <source>汉城</source>
        <translation>Seoul</translation>
    </message>
</context>
<context>
    <name>UxSettingDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>列操作</source>
        <translation>Columns</translation>
    </message>
    <message>
        <source>显示/隐藏</source>
        <translation>Show/Hide</translation>
    </message>
    <message>
        <source>置顶</source>
        <translation>Move to top</translation>
    </message>
    <message>
        <source>上移</source>
        <translation>Move up</translation>
    </message>
    <message>
        <source>下移</source>
        <translation>Move down</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
</TS>
