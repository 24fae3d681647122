VERSION 5.00
Object = "{B397E99F-3222-4CBC-BFEE-73BEF07B25F5}#1.0#0"; "DistPromoterProg.ocx"
Begin VB.Form HostForm
   Caption         =   "Host"
   ClientHeight    =   1200
   ClientWidth     =   4200
   StartUpPosition =   3  'Windows Default
   Begin comDistPromoterProg.DistPromoterProg comDistPromoterProg1
      Left            =   3600
      Top             =   600
      _ExtentX        =   847
      _ExtentY        =   847
   End
   Begin VB.TextBox txtProgram
      Height          =   360
      Left            =   240
      TabIndex        =   0
      Text            =   "1"
      Top             =   360
      Width           =   1200
   End
   Begin VB.CommandButton cmdOpen
      Caption         =   "Open"
      Height          =   360
      Left            =   1680
      TabIndex        =   1
      Top             =   360
      Width           =   1200
   End
End
Attribute VB_Name = "HostForm"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' A host gives the control the login and the connection, then opens a program. The control has no
' surface: it shrinks and hides itself as soon as it is painted.
Option Explicit

Private Sub Form_Load()
    With comDistPromoterProg1
        .UserID = 1
        .EmployeeID = 1
        .PositionID = 1
        .OLEConnectionString = "Provider=SQLOLEDB;Data Source=server;" & _
            "Initial Catalog=office;Integrated Security=SSPI"
    End With
End Sub

Private Sub cmdOpen_Click()
    Dim lngProgram As Long
    On Error GoTo Failed
    lngProgram = Val(txtProgram.Text)
    If lngProgram > 0 Then
        comDistPromoterProg1.View lngProgram    ' by reference; always returns False
    Else
        comDistPromoterProg1.ClearShow
    End If
    Exit Sub
Failed:
    MsgBox Err.Number & ": " & Err.Description, vbExclamation
End Sub
